#pragma once

#include "data/Messages.h"

namespace tb {

// The desktop program's messages: a modal message box over the active window, with the icon and
// title the message's kind asks for; questions offer Yes and No.
class MessageBoxes : public MessageInterface {
public:
    void Show(const MessageBoxText& box) override;
    bool AskYesNo(const std::string& question, const std::string& title) override;
    void Beep() override;
};

}  // namespace tb
