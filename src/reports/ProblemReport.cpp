#include "data/Conversions.h"
#include "data/clResults.h"
#include "reports/ReportXmlRules.h"

namespace tb {

namespace {

std::string ProblemStyleBlock() {
    constexpr const char* lines[] = {
        "<STYLE TYPE='text/css'>",
        "<!--",
        "BODY, TD, TH {background-color: #F2EFEC;color: #003366;font-family: Verdana, Arial; "
        "font-size: 10pt; margin: 0pt;padding: 0px} ",
        "P {font-family:  Arial, Verdana; margin: 0pt; padding: 0px}",
        ".CHR {color: #003f72; font-family: Arial, Verdana, Sans-Serif;font-size: 10pt; margin: "
        "0pt; padding: 1pt}",
        ".CBR {color: #003f72; font-family: Arial, Verdana, Sans-Serif; font-size: 9pt; margin: "
        "0pt; padding-left: 1pt}",
        ".CBS {background-color: #F2EFEC; color: #003366; font-size: 10pt; padding: 1pt; "
        "padding-right: 0pt; padding-top: 2pt}",
        ".LinkStyleSans {TEXT-ALIGN: center; COLOR: blue; TEXT-DECORATION: none; FONT-WEIGHT: "
        "bold}",
        ".vsmall {FONT-SIZE: 6pt; PADDING: 0pt; MARGIN: 0px; COLOR: #f2efec}",
        ".ClassCell {PADDING-RIGHT: 0pt; PADDING-LEFT: 1pt; PADDING-BOTTOM: 0pt; PADDING-TOP: 0pt; "
        "MARGIN: 0pt; FONT-FAMILY: Arial, Verdana; FONT-SIZE: 10pt}",
        "SELECT {FONT-SIZE: 10pt}",
        "#idr {TEXT-ALIGN: right} #idl {TEXT-ALIGN: left} #idf {TEXT-ALIGN: justify} #idc "
        "{TEXT-ALIGN: center}",
        "--></STYLE>",
    };
    std::string block;
    for (const char* line : lines) {
        if (!block.empty())
            block += kCrLf;
        block += line;
    }
    return block;
}

// The value's text as a page shows it as typed: the characters that would start markup or an
// entity, or end the quoted link, are written as references.
std::string PageText(const Value& value) {
    std::string written;
    for (const char c : ToText(value)) {
        switch (c) {
            case '&':
                written += "&amp;";
                break;
            case '<':
                written += "&lt;";
                break;
            case '>':
                written += "&gt;";
                break;
            case '\'':
                written += "&#39;";
                break;
            default:
                written += c;
        }
    }
    return written;
}

}  // namespace

std::string clResults::ReportProblemsHTML(const std::string& ResultsFile, const RowSet& ClassRows,
                                          const RowSet& Problems, std::string& Html,
                                          const std::string& Notice) {
    return RunWriter("ReportProblemsHTML", [&] {
        const std::string crlf = kCrLf;
        Html = "<HEAD>" + crlf +
               R"(<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=windows-1252">)" +
               crlf + "<TITLE>" + PageText(ClassRows(RaceClassCol::Title, 0)) + "&nbsp;" +
               PageText(ClassRows(RaceClassCol::RaceName, 0)) + "</TITLE>" + crlf +
               ProblemStyleBlock() + crlf + "</HEAD>" + crlf +
               "<BODY><P CLASS=CBS ID=idc>&nbsp;</P>" + crlf +
               "<B>TALLYBOARD PROBLEM REPORT</B><P>&nbsp;</P>" + crlf;
        if (!Notice.empty())
            Html += "<P><B>" + PageText(Value(Notice)) + "</B></P><P>&nbsp;</P>" + crlf;
        for (std::size_t k = 0; k < Problems.Rows(); ++k) {
            const std::string boat = PageText(Problems(ProblemsCol::BoatName, k));
            if (Problems(ProblemsCol::Class, k).AsInt() == 0) {
                Html += "<P>" + boat + " is not entered in a specific class</P>";
            } else {
                Html += "<P>" + boat + " has " + ToText(Problems(ProblemsCol::Handicaps, k)) +
                        " active " + PageText(Problems(ProblemsCol::Description, k)) +
                        " handicaps on " + ToText(Problems(ProblemsCol::RaceDate, k)) + "</P>" +
                        crlf;
            }
        }
        Html += "<P>&nbsp;</P><P><A HREF='" + PageText(Value(ResultsFile)) +
                "'>View results</A></P></DIV></BODY></HTML>" + crlf;
        return std::string();
    });
}

}  // namespace tb
