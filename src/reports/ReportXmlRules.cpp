#include "reports/ReportXmlRules.h"

#include <libxml/parser.h>

#include <cmath>
#include <string_view>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "reports/Charset.h"

namespace tb {

namespace {

// XML 1.0 holds no control character but the tab and line breaks, nor U+FFFE and U+FFFF, not
// even as a character reference; one pasted into a name would leave the whole report unreadable.
// The bytes of such a character at the position, 0 for any other.
std::size_t UncarriedBytes(std::string_view text, std::size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r')
        return 1;
    const std::string_view next = text.substr(at, 3);
    return next == "\xEF\xBF\xBE" || next == "\xEF\xBF\xBF" ? 3 : 0;
}

// The text with the characters XML cannot hold left out and the markup characters in escape.
std::string EscapedText(std::string_view text, std::string_view markup) {
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const std::size_t skipped = UncarriedBytes(text, i)) {
            i += skipped - 1;
            continue;
        }
        const char c = text[i];
        if (markup.find(c) != std::string_view::npos)
            escaped += "&#" + std::to_string(static_cast<int>(c)) + ";";
        else
            escaped += c;
    }
    return escaped;
}

bool IsWellFormedContent(const std::string& content) {
    const std::string element = "<f>" + content + "</f>";
    xmlDoc* doc = xmlReadMemory(element.data(), static_cast<int>(element.size()), nullptr, "UTF-8",
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    xmlFreeDoc(doc);
    return doc != nullptr;
}

}  // namespace

std::string AttributeValue(const Value& value) {
    return "\"" + EscapedText(WithValidUtf8(ToText(value)), "&\"<>") + "\"";
}

std::string FootnoteContent(const std::string& footnote) {
    const std::string text = WithValidUtf8(footnote);
    const std::string kept = EscapedText(text, "");
    return IsWellFormedContent(kept) ? kept : EscapedText(text, "&<>");
}

std::string ReportTypeOf(const std::string& Letter) {
    if (Letter == "A")
        return "EntryListBySailNo";
    if (Letter == "C")
        return "ClassSheet";
    if (Letter == "E")
        return "EntryListByHandicap";
    if (Letter == "B")
        return "CombinedResults";
    if (Letter == "R")
        return "RaceResults";
    if (Letter == "S")
        return "SeriesResults";
    return {};
}

std::string HeaderAttributes(short Option, const std::string& Letter) {
    const DateTime now = Now();
    std::string entrants;
    switch (Option) {
        case 0:
            entrants = "Series";
            break;
        case 1:
            entrants = "SubSeries";
            break;
        case 2:
            entrants = "All";
            break;
        default:
            break;
    }
    return " ReportDate=\"" + FormatDate(now, "dd mmm yyyy") + "\" ReportTime=\"" +
           FormatDate(now, "hh:mm") + "\" ReportType=\"" + ReportTypeOf(Letter) + "\" Entrants=\"" +
           entrants + "\">";
}

std::string ClassLink(const std::string& ClassName) {
    const std::string_view seventh = CharacterAt(ClassName, 6);
    if (seventh.size() == 1 && seventh[0] >= '1' && seventh[0] <= '4')
        return "class" + std::string(seventh);
    if (seventh == "u")
        return "classmultihulls";
    return {};
}

void AppendPenaltyNote(const Value& Penalty, const std::string& Unit, std::string& Note) {
    if (Penalty.IsNull() || Penalty.AsDouble() == 0)
        return;
    if (!Note.empty())
        Note += ' ';
    std::string text = FormatNumber(Penalty.AsDouble(), "+0.00; -0.00");
    if (text.ends_with('0'))
        text.pop_back();
    if (text.ends_with(".0"))
        text.resize(text.size() - 2);
    Note += text + Unit;
}

std::string RunWriter(const char* location, const std::function<std::string()>& body) {
    try {
        return body();
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, location, &pending);
    }
}

}  // namespace tb
