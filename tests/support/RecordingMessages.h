#pragma once

#include <deque>
#include <string>
#include <vector>

#include "data/Messages.h"

namespace tb::test {

// Records every message and question instead of showing it, and answers questions from a
// script (Yes when the script has run out). Installs itself as the program's message interface
// for its lifetime.
class RecordingMessages : public MessageInterface {
public:
    RecordingMessages() { SetMessageInterface(this); }
    ~RecordingMessages() override { SetMessageInterface(nullptr); }

    void Show(const MessageBoxText& box) override { shown.push_back(box); }
    bool AskYesNo(const std::string& question, const std::string& title) override;
    void Beep() override { ++beeps; }

    // The texts shown, each as kind letter + "-" + text, as operations return them.
    std::vector<std::string> Texts() const;
    void Clear();

    std::vector<MessageBoxText> shown;
    std::vector<std::string> questions;
    std::deque<bool> answers;
    int beeps = 0;
};

}  // namespace tb::test
