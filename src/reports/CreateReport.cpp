#include <fcntl.h>
#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xslt.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include "data/Connection.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string_view>
#include <vector>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"
#include "reports/Charset.h"
#include "reports/ReportXmlRules.h"
#include "scoring/ScopeResults.h"

extern char** environ;

namespace tb {

namespace {

namespace fs = std::filesystem;

constexpr const char* kNotPublished =
    "The results were not published: the handicaps listed on the problem page are not settled.";

// Writes the file (created or overwritten) with the text and a line end. The text goes to a
// file beside it first and takes the report's name only once complete, so a write that fails
// part-way (a full disk, a size limit) leaves the earlier report, never half of a new one.
void WriteReportFile(const std::string& path, const std::string& text) {
    const std::string partial = path + ".part";
    std::ofstream file(partial, std::ios::binary | std::ios::trunc);
    if (!file)
        throw RunTimeFault(75, "Path/File access error: " + path);
    file << text << kCrLf;
    file.close();
    std::error_code ignored;
    if (!file) {
        fs::remove(partial, ignored);
        throw RunTimeFault(61, "Disk full: " + path);
    }
    std::error_code renamed;
    fs::rename(partial, path, renamed);
    if (renamed) {
        fs::remove(partial, ignored);
        throw RunTimeFault(75, "Path/File access error: " + path);
    }
}

// ---- The XSL transform

struct DocFree {
    void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
};
struct StylesheetFree {
    void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
};
struct ParserFree {
    void operator()(xmlParserCtxt* ctxt) const { xmlFreeParserCtxt(ctxt); }
};
struct TransformFree {
    void operator()(xsltTransformContext* ctxt) const { xsltFreeTransformContext(ctxt); }
};
using DocPtr = std::unique_ptr<xmlDoc, DocFree>;

// The messages libxslt gives while compiling or running a style sheet, gathered for the user
// rather than printed on the terminal.
std::string& XsltMessages() {
    static std::string messages;
    return messages;
}
void GatherXsltMessage(void*, const char* format, ...) {
    va_list args;
    va_start(args, format);
    char buffer[1024];
    std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    XsltMessages() += buffer;
}

std::string LineOf(const std::string& text, int line) {
    std::istringstream lines(text);
    std::string current;
    for (int n = 1; std::getline(lines, current); ++n) {
        if (n == line) {
            if (!current.empty() && current.back() == '\r')
                current.pop_back();
            return current;
        }
    }
    return {};
}

// The first error a parse meets: what the user is told, with the source line it stopped at.
struct FirstParseError {
    bool seen = false;
    std::string reason;
    int line = 0;
};

void KeepFirstParseError(void* data, xmlError* error) {
    auto* ctxt = static_cast<xmlParserCtxt*>(data);
    auto* first = static_cast<FirstParseError*>(ctxt->_private);
    if (first->seen || error == nullptr || error->level < XML_ERR_ERROR)
        return;
    first->seen = true;
    first->reason = error->message != nullptr ? error->message : "The text is not well-formed.\n";
    first->line = error->line;
}

// Parses the text keeping every blank; on failure the message is "E-" + the parser's reason +
// the source line it stopped at.
DocPtr ParseKeepingBlanks(const std::string& text, const std::string& url, std::string& Msg) {
    std::unique_ptr<xmlParserCtxt, ParserFree> ctxt(xmlNewParserCtxt());
    if (!ctxt)
        throw RunTimeFault(7, "Out of memory");
    FirstParseError first;
    ctxt->_private = &first;
    ctxt->sax->serror = KeepFirstParseError;
    DocPtr doc(xmlCtxtReadMemory(ctxt.get(), text.data(), static_cast<int>(text.size()),
                                 url.empty() ? nullptr : url.c_str(), nullptr, XML_PARSE_NONET));
    if (!doc || first.seen) {
        Msg = "E-" + first.reason + LineOf(text, first.line);
        return nullptr;
    }
    return doc;
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw RunTimeFault(53, "File not found: " + path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// ---- Output objects: a program that takes the output file name and the paths of a file with
// the HTML text and one with the XML text.

std::string OutputObjectProgram(const std::string& name) {
    const fs::path beside = fs::path(ProgramFolder()) / "OutputObjects" / name;
    if (name.find('/') == std::string::npos && access(beside.c_str(), X_OK) == 0)
        return beside.string();
    return name;
}

class TemporaryFile {
public:
    TemporaryFile(const std::string& text, const char* suffix) {
        std::string pattern = (fs::temp_directory_path() / "tallyboard-XXXXXX").string() + suffix;
        const int fd =
            mkstemps(pattern.data(), static_cast<int>(std::char_traits<char>::length(suffix)));
        if (fd < 0)
            throw RunTimeFault(75, "Path/File access error: " + pattern);
        close(fd);
        path_ = pattern;
        std::ofstream file(path_, std::ios::binary | std::ios::trunc);
        file << text;
    }
    ~TemporaryFile() {
        std::error_code ec;
        fs::remove(path_, ec);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// The last line the program printed, without its line end: where it published the page.
std::string LastLine(const std::string& printed) {
    std::istringstream lines(printed);
    std::string last;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (!line.empty())
            last = line;
    }
    return last;
}

// The environment the output object runs in: the caller's, and where the report would be written
// had the action no output object (an object that saves a file keeps it in the report folder).
std::vector<std::string> OutputObjectEnvironment(const std::string& ReportFile) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (!std::string_view(*variable).starts_with("TALLYBOARD_REPORT_FILE="))
            variables.emplace_back(*variable);
    }
    variables.push_back("TALLYBOARD_REPORT_FILE=" + ReportFile);
    return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// Runs the output object; Published is the last line it printed on its standard output (where it
// put the page), empty when it printed nothing. A failing object's last line of complaint is
// added to the message, so "WeasyPrint is not installed" reaches the user.
std::string RunOutputObject(const std::string& OutputObject, const std::string& OutputFile,
                            const std::string& ReportFile, const std::string& Html,
                            const std::string& Xml, std::string& Published) {
    const TemporaryFile htmlFile(Html, ".htm");
    const TemporaryFile xmlFile(Xml, ".xml");
    const TemporaryFile complaints({}, ".txt");
    const std::string program = OutputObjectProgram(OutputObject);
    std::vector<std::string> args = {program, OutputFile, htmlFile.path(), xmlFile.path()};
    std::vector<std::string> environment = OutputObjectEnvironment(ReportFile);
    // Close-on-exec, so no other program started meanwhile holds the pipe open.
    int pipeEnds[2];
    if (pipe2(pipeEnds, O_CLOEXEC) != 0)
        return "E-Failed to create output object " + OutputObject;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, complaints.path().c_str(),
                                     O_WRONLY | O_TRUNC, 0);
    pid_t pid = 0;
    const int spawned = posix_spawnp(&pid, program.c_str(), &actions, nullptr,
                                     Pointers(args).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    std::string printed;
    char buffer[4096];
    for (ssize_t n; spawned == 0 && (n = read(pipeEnds[0], buffer, sizeof buffer)) != 0;) {
        if (n > 0)
            printed.append(buffer, static_cast<std::size_t>(n));
        else if (errno != EINTR)
            break;
    }
    close(pipeEnds[0]);
    if (spawned != 0)
        return "E-Failed to create output object " + OutputObject;
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return "E-Output object " + OutputObject + " process failed";
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        const std::string reason = LastLine(ReadWholeFile(complaints.path()));
        return "E-Output object " + OutputObject + " process failed" +
               (reason.empty() ? "" : ": " + reason);
    }
    Published = LastLine(printed);
    return {};
}

}  // namespace

std::string clResults::XMLTransform(const std::string& Xml, const std::string& StyleSheetPath,
                                    std::string& Output) {
    return RunWriter("XMLTransform", [&] {
        std::string Msg;
        DocPtr sheetDoc = ParseKeepingBlanks(ReadWholeFile(StyleSheetPath), StyleSheetPath, Msg);
        if (!Msg.empty())
            return Msg;
        XsltMessages().clear();
        xsltSetGenericErrorFunc(nullptr, GatherXsltMessage);
        std::unique_ptr<xsltStylesheet, StylesheetFree> sheet(
            xsltParseStylesheetDoc(sheetDoc.get()));
        if (!sheet)
            return "E-" + XsltMessages();
        sheetDoc.release();  // the style sheet owns its document now

        DocPtr report = ParseKeepingBlanks(Xml, {}, Msg);
        if (!Msg.empty())
            return Msg;
        std::unique_ptr<xsltTransformContext, TransformFree> run(
            xsltNewTransformContext(sheet.get(), report.get()));
        if (!run)
            throw RunTimeFault(7, "Out of memory");
        const std::string progPath = ProgramFolder() + "/";
        xsltQuoteOneUserParam(run.get(), reinterpret_cast<const xmlChar*>("ProgPath"),
                              reinterpret_cast<const xmlChar*>(progPath.c_str()));
        DocPtr result(xsltApplyStylesheetUser(sheet.get(), report.get(), nullptr, nullptr, nullptr,
                                              run.get()));
        if (!result || run->state != XSLT_STATE_OK)
            throw RunTimeFault(51, "The style sheet failed: " + XsltMessages());
        xmlChar* text = nullptr;
        int length = 0;
        if (xsltSaveResultToString(&text, &length, result.get(), sheet.get()) != 0)
            throw RunTimeFault(51, "The transformed report could not be written out");
        Output.assign(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
        xmlFree(text);
        return std::string();
    });
}

std::string clResults::CreateReport(int KindIndex, int ActionIndex, int Viewer, int RaceId,
                                    std::string& OutputPath) {
    return RunWriter("CreateReport", [&] {
        if (KindIndex < 0 || KindIndex > 5)
            throw RunTimeFault(9, "Subscript out of range");
        const ReportSection& section = ReportMenu_[static_cast<std::size_t>(KindIndex)];
        if (ActionIndex < 0 || static_cast<std::size_t>(ActionIndex) >= section.Actions.size())
            throw RunTimeFault(9, "Subscript out of range");
        const ReportAction& action = section.Actions[static_cast<std::size_t>(ActionIndex)];
        const std::string Letter(1, kReportLetters[KindIndex]);
        const short Option = action.Option;

        // Gather the data.
        RowSet ClassRows;
        RowSet Problems(ProblemsCol::Count, 1);
        std::string Xml;
        std::string Msg;
        if (Letter == "A" || Letter == "C" || Letter == "E") {
            Msg = ReportEntries(RaceId, Option, ClassRows, Letter, Xml);
        } else {
            RowSet ResultRows;
            RowSet CumulativeRows;
            RowSet SeriesPointsRows;
            // The computations and the reads of what they stored make one transaction, so
            // the report costs one commit.
            Msg = ConnectDb();
            if (Msg.empty()) {
                Msg = Atomically([&] {
                    ScopeResults scope;
                    std::string Msg = ComputeResultTimes(RaceId, Problems);
                    if (Msg.empty())
                        Msg = ComputePoints(RaceId, Option, scope);
                    if (Msg.empty())
                        Msg = GetRaceResults(RaceId, Option, ClassRows, ResultRows);
                    if (Msg.empty() && Letter != "R")
                        Msg = ComputeSeriesPoints(RaceId, Option, scope, SeriesPointsRows);
                    if (Msg.empty() && Letter != "R")
                        Msg = GetCumulativeResults(RaceId, Option, scope, CumulativeRows);
                    return Msg;
                });
            }
            if (Msg.empty()) {
                Msg = ReportRaceResults(Option, Letter, Viewer, ClassRows, ResultRows,
                                        CumulativeRows, SeriesPointsRows, Xml);
            }
        }
        if (!Msg.empty())
            return Msg;

        // The year folder and the report's path.
        const Value& raceDate = ClassRows(RaceClassCol::RaceDate, 0);
        const std::string month = Format(raceDate, "mm");
        const std::string day = Format(raceDate, "dd");
        const std::string folder = ReportPath + Format(raceDate, "yyyy") + "/";
        fs::create_directories(folder);
        std::string reportPath;
        if (action.OutputFile.find('/') != std::string::npos) {
            reportPath = action.OutputFile;
        } else if (!action.OutputFile.empty()) {
            reportPath = folder + action.OutputFile;
        } else {
            reportPath = folder + month + day + "_" +
                         Format(ClassRows(RaceClassCol::Started, 0), "hhmm") + "_" +
                         std::to_string(Option) + Letter +
                         (action.StyleSheet.empty() ? ".xml" : ".htm");
        }

        // Unsettled handicaps: the problem report, linking to the results, is what is shown.
        const bool problems = !Problems(ProblemsCol::Boat, 0).IsNull();
        if (!problems) {
            OutputPath = reportPath;
        } else {
            std::string problemHtml;
            Msg = ReportProblemsHTML(reportPath, ClassRows, Problems, problemHtml,
                                     action.OutputObject.empty() ? "" : kNotPublished);
            if (!Msg.empty())
                return Msg;
            const std::string problemPath = folder + month + day + "_Problem.htm";
            WriteReportFile(problemPath, EncodeWindows1252(problemHtml));
            OutputPath = problemPath;
        }

        const std::string sheetPath = ReportPath + action.StyleSheet;
        if (!fs::exists(sheetPath))
            return "E-File " + sheetPath + " was not found";
        std::string Html;
        if (!action.StyleSheet.empty()) {
            Msg = XMLTransform(Xml, sheetPath, Html);
            if (!Msg.empty())
                return Msg;
        }

        if (!action.OutputObject.empty()) {
            // Publishing stops at unsettled handicaps, and says so: nothing reached the public.
            if (problems)
                return "E-" + std::string(kNotPublished) + " See " + OutputPath;
            std::string published;
            Msg = RunOutputObject(action.OutputObject, action.OutputFile, reportPath, Html, Xml,
                                  published);
            if (Msg.empty() && !published.empty())
                OutputPath = published;
            return Msg;
        } else {
            WriteReportFile(reportPath, action.StyleSheet.empty() ? Xml : Html);
        }
        return std::string();
    });
}

}  // namespace tb
