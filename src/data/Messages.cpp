#include "data/Messages.h"

#include <SQLiteCpp/Exception.h>

#include <iostream>

#include "data/RunTimeFault.h"
#include "data/ServerError.h"

namespace tb {

namespace {
StderrMessages stderrMessages;
MessageInterface* installed = &stderrMessages;
}  // namespace

MessageBoxText DescribeMessage(const std::string& Msg) {
    MessageBoxText box{MessageIcon::Exclamation, "Error", Msg.size() > 2 ? Msg.substr(2) : ""};
    if (!Msg.empty() && Msg[0] == 'I') {
        box.icon = MessageIcon::Information;
        box.title = "Information";
    } else if (!Msg.empty() && Msg[0] == 'C') {
        box.icon = MessageIcon::Critical;
    }
    return box;
}

void StderrMessages::Show(const MessageBoxText& box) {
    std::cerr << box.title << ": " << box.text << '\n';
}

bool StderrMessages::AskYesNo(const std::string& question, const std::string& title) {
    std::cerr << title << ": " << question << " (answered No)\n";
    return false;
}

void SetMessageInterface(MessageInterface* messages) {
    installed = messages ? messages : &stderrMessages;
}

MessageInterface& Messages() {
    return *installed;
}

void ShowMessage(const std::string& Msg) {
    if (Msg.empty())
        return;
    installed->Show(DescribeMessage(Msg));
}

bool AskYesNo(const std::string& question, const std::string& title) {
    return installed->AskYesNo(question, title);
}

void Beep() {
    installed->Beep();
}

PendingError DescribeCurrentException() {
    try {
        throw;
    } catch (const SQLite::Exception& e) {
        return {e.getExtendedErrorCode(), "SQLite", e.what()};
    } catch (const ServerError& e) {
        return {0, kServerSource, e.what(), e.sqlstate()};
    } catch (const RunTimeFault& e) {
        return {e.number(), kProgramSource, e.description()};
    } catch (const std::bad_alloc&) {
        return {7, kProgramSource, "Out of memory"};
    } catch (const std::exception& e) {
        return {51, kProgramSource, e.what()};
    } catch (...) {
        return {51, kProgramSource, "Internal error"};
    }
}

std::string ErrorText(const std::string& Msg, const std::string& Location,
                      const PendingError* pending) {
    if (!Msg.empty())
        return Msg;
    if (pending == nullptr)
        return {};
    const std::string number =
        pending->state.empty() ? std::to_string(pending->number) : pending->state;
    return "C-Error " + number + " raised by " + pending->source + " in " + Location + "\r" +
           pending->description;
}

}  // namespace tb
