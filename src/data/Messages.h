#pragma once

// The message convention: every operation returns a text that is empty on success, or a kind
// letter, a hyphen and the text to show. Messages and yes/no questions reach the user through one
// interface, which the desktop program answers with message boxes, the command line with stderr
// and the tests with a recorder.

#include <string>

namespace tb {

enum class MessageIcon { Information, Critical, Exclamation, Question };

struct MessageBoxText {
    MessageIcon icon;
    std::string title;
    std::string text;
};

// Icon, title and text of a non-empty message: "I" information, "C" critical, any other letter
// the exclamation icon; the text is everything from the third character on.
MessageBoxText DescribeMessage(const std::string& Msg);

class MessageInterface {
public:
    virtual ~MessageInterface() = default;
    virtual void Show(const MessageBoxText& box) = 0;
    virtual bool AskYesNo(const std::string& question, const std::string& title) = 0;
    virtual void Beep() = 0;
};

// Writes messages to stderr as "Title: text"; a question is answered No, as nobody can answer it.
class StderrMessages : public MessageInterface {
public:
    void Show(const MessageBoxText& box) override;
    bool AskYesNo(const std::string& question, const std::string& title) override;
    void Beep() override {}
};

// The program's one message interface; the stderr one until a program installs another.
void SetMessageInterface(MessageInterface* messages);
MessageInterface& Messages();

void ShowMessage(const std::string& Msg);
bool AskYesNo(const std::string& question, const std::string& title = "Tallyboard");
void Beep();

// The run-time error an operation caught: its number, source and description. The server's
// errors are numbered by their SQLSTATE, which is not always a number ("42P01").
struct PendingError {
    PendingError(long number, std::string source, std::string description, std::string state = {})
        : number(number),
          source(std::move(source)),
          description(std::move(description)),
          state(std::move(state)) {}

    long number = 0;
    std::string source;
    std::string description;
    std::string state;
};

// Describes the exception being handled; call only inside a catch block.
PendingError DescribeCurrentException();

// Msg unchanged when it is not empty; otherwise the "C-Error" text of the pending error, or an
// empty text when there is none.
std::string ErrorText(const std::string& Msg, const std::string& Location,
                      const PendingError* pending = nullptr);

}  // namespace tb
