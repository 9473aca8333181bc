// Feeds any value to the attribute value writer, the class footnote writer and the penalty note
// formatter. Any attribute and any footnote parses; a value whose text is UTF-8 must read back
// from the attribute as written (white space as an attribute normalises it); a penalty note only
// ever grows at its end.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "FuzzInput.h"
#include "XmlCheck.h"
#include "data/Conversions.h"
#include "data/RunTimeFault.h"
#include "reports/Charset.h"
#include "reports/ReportXmlRules.h"

namespace {

// The attribute's text as an XML reader hands it back: without the characters XML cannot hold
// (other controls, U+FFFE, U+FFFF); line ends become one line feed, then each tab and line feed
// a blank.
std::string AsAttributeReadsBack(const std::string& text) {
    std::string carried;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const std::string_view next = std::string_view(text).substr(i, 3);
        if (next == "\xEF\xBF\xBE" || next == "\xEF\xBF\xBF")
            i += 2;
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r')
            carried += c;
    }
    std::string normalised;
    for (std::size_t i = 0; i < carried.size(); ++i) {
        const char c = carried[i];
        if (c == '\r' && i + 1 < carried.size() && carried[i + 1] == '\n')
            continue;
        normalised += c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
    }
    return normalised;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tb::fuzz::FuzzInput input(data, size);
    const tb::Value value = input.AnyValue();

    const std::string attribute = tb::AttributeValue(value);
    std::string readBack;
    if (!tb::fuzz::ParsesAsXml("<a v=" + attribute + "/>", &readBack))
        std::abort();
    const std::string text = tb::ToText(value);
    if (tb::WithValidUtf8(text) == text && readBack != AsAttributeReadsBack(text))
        std::abort();
    if (!tb::fuzz::ParsesAsXml("<f>" + tb::FootnoteContent(text) + "</f>"))
        std::abort();

    const tb::Value penalty = input.AnyValue();
    const std::string unit = input.Byte() & 1 ? "min" : "%";
    const std::string before = input.Text();
    std::string note = before;
    try {
        tb::AppendPenaltyNote(penalty, unit, note);
    } catch (const tb::RunTimeFault&) {
        // A text penalty that is no number is a Type mismatch the report turns into a message.
        return 0;
    }
    if (!note.starts_with(before))
        std::abort();
    if (note != before && !note.ends_with(unit))
        std::abort();
    return 0;
}
