#include "support/RecordingMessages.h"

namespace tb::test {

bool RecordingMessages::AskYesNo(const std::string& question, const std::string&) {
    questions.push_back(question);
    if (answers.empty())
        return true;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

std::vector<std::string> RecordingMessages::Texts() const {
    std::vector<std::string> texts;
    for (const auto& box : shown) {
        const char kind = box.icon == MessageIcon::Information ? 'I'
                          : box.icon == MessageIcon::Critical  ? 'C'
                                                               : 'E';
        texts.push_back(std::string(1, kind) + "-" + box.text);
    }
    return texts;
}

void RecordingMessages::Clear() {
    shown.clear();
    questions.clear();
    answers.clear();
    beeps = 0;
}

}  // namespace tb::test
