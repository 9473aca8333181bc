#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iterator>
#include <map>

#include "data/Connection.h"

#include "data/Conversions.h"
#include "data/Transaction.h"
#include "data/clResults.h"
#include "exchange/RowChecks.h"

namespace tb {

namespace {

constexpr std::size_t kPreviewRows = 10;
constexpr std::size_t kProblemsInMessage = 20;
constexpr int kFinished = 9;

// Columns of the row sets the finishes read.
constexpr std::size_t kFoundEntrant = 0, kFoundBoatName = 1;
constexpr std::size_t kStartClassName = 0, kStartTime = 1;
constexpr std::size_t kStatusId = 0, kStatusCode = 1;
constexpr std::size_t kIdColumn = 0;

constexpr const char* kHandicapOfDay = R"sql(
SELECT Id FROM Handicap WHERE Boat=?1 AND HandicapType=?2 AND EffectiveFrom=?3 ORDER BY Id)sql";

std::string BaseName(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Added, updated and skipped records of each kind.
class Counts {
public:
    void Add(const char* kind) { Of(kind)[0]++; }
    void Update(const char* kind) { Of(kind)[1]++; }
    void Skip(const char* kind) { Of(kind)[2]++; }
    // In the order the register builds up: people and models before the boats that name them.
    std::string Summary() const {
        std::string text;
        for (const char* kind :
             {"people", "models", "boats", "handicap types", "handicaps", "finishes"}) {
            for (const auto& [name, n] : counts_) {
                if (name == kind) {
                    text += name + ": " + std::to_string(n[0]) + " added, " + std::to_string(n[1]) +
                            " updated, " + std::to_string(n[2]) + " skipped\n";
                }
            }
        }
        return text;
    }

private:
    std::array<int, 3>& Of(const char* kind) {
        for (auto& [name, n] : counts_) {
            if (name == kind)
                return n;
        }
        return counts_.emplace_back(kind, std::array<int, 3>{}).second;
    }
    std::vector<std::pair<std::string, std::array<int, 3>>> counts_;
};

// A created model, owner or handicap type counts as added under its own kind.
void CountFound(Counts& counts, const char* kind, bool added) {
    if (added)
        counts.Add(kind);
}

std::string ProblemsMessage(const std::vector<std::string>& problems) {
    std::string Msg = "E-";
    for (std::size_t i = 0; i < problems.size() && i < kProblemsInMessage; ++i)
        Msg += (i > 0 ? "\n" : "") + problems[i];
    if (problems.size() > kProblemsInMessage)
        Msg += "\nand " + std::to_string(problems.size() - kProblemsInMessage) + " more problems";
    return Msg + "\nNothing was imported.";
}

}  // namespace

std::string clResults::PreviewImport(CsvKind Kind, const std::string& FilePath, bool Update,
                                     int RaceId, ImportReport& Report) {
    const std::string Msg = Import(Kind, FilePath, Update, RaceId, false, Report);
    return Report.Problems.empty() ? Msg : std::string();
}

std::string clResults::ImportCsv(CsvKind Kind, const std::string& FilePath, bool Update, int RaceId,
                                 ImportReport& Report) {
    return Import(Kind, FilePath, Update, RaceId, true, Report);
}

std::string clResults::Import(CsvKind Kind, const std::string& FilePath, bool Update, int RaceId,
                              bool Commit, ImportReport& Report) {
    Report = ImportReport();
    const std::string file = BaseName(FilePath);
    std::ifstream in(FilePath, std::ios::binary);
    if (!in)
        return "E-The file " + FilePath + " cannot be read";
    // Read no more than the reader takes, plus one byte so that a larger file is told so.
    std::string bytes(kMaxCsvBytes + 1, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    CsvTable table;
    if (const std::string problem = ReadCsv(bytes, table); !problem.empty()) {
        Report.Problems.push_back(file + ": " + problem);
        return ProblemsMessage(Report.Problems);
    }
    const ColumnMatch match = MatchColumns(Kind, table.Header);
    Report.Header = table.Header;
    Report.Recognised = match.Names;
    Report.Ignored = match.Ignored;
    Report.FirstRows.assign(table.Rows.begin(),
                            table.Rows.begin() + static_cast<std::ptrdiff_t>(
                                                     std::min(kPreviewRows, table.Rows.size())));
    ImportRows rows;
    Report.Problems = CheckRows(Kind, table, file, rows);
    if (!Report.Problems.empty())
        return ProblemsMessage(Report.Problems);

    Counts counts;
    auto& problems = Report.Problems;
    const std::string Msg = Run("ImportCsv", Commit ? Shape::Store : Shape::Write, [&] {
        Transaction all(*Cn);
        std::string Msg;
        for (const PersonRow& p : rows.People) {
            int id = 0;
            RowSet found;
            Msg = FindName(p.Firstname, p.Lastname, found);
            id = Msg.empty() ? static_cast<int>(found(kIdColumn, 0).AsInt()) : 0;
            if (Msg.empty() && id != 0 && !Update) {
                counts.Skip("people");
                continue;
            }
            if (Msg.empty()) {
                id != 0 ? counts.Update("people") : counts.Add("people");
                Msg =
                    PutPersonalDetails(id, p.Title, p.Firstname, p.Lastname, p.Address1, p.Address2,
                                       p.City, p.Postcode, p.Country, p.TelNo, p.FaxNo, p.DayTelNo,
                                       p.MobileNo, p.ClubMember, p.EmailAddress);
            }
            if (!Msg.empty())
                return Msg;
        }
        for (const ModelRow& m : rows.Models) {
            int id = 0;
            bool added = false;
            Msg = FindOrAddModel(m.Model, id, added);
            if (Msg.empty() && !added && !Update) {
                counts.Skip("models");
                continue;
            }
            if (Msg.empty()) {
                added ? counts.Add("models") : counts.Update("models");
                Msg = PutModelDetails(id, m.Model, m.LOA, m.Draft);
            }
            if (!Msg.empty())
                return Msg;
        }
        for (const BoatRow& b : rows.Boats) {
            RowSet found;
            int model = 0, owner = 0;
            bool added = false;
            Msg = FindBoat(b.FullSailNo, found);
            int id =
                Msg.empty() && !found.IsEmpty() ? static_cast<int>(found(kIdColumn, 0).AsInt()) : 0;
            if (Msg.empty() && id != 0 && !Update) {
                counts.Skip("boats");
                continue;
            }
            if (Msg.empty())
                Msg = FindOrAddModel(b.Model, model, added);
            CountFound(counts, "models", added);
            if (Msg.empty())
                Msg = FindOrAddPerson(b.Owner.Firstname, b.Owner.Lastname, owner, added);
            CountFound(counts, "people", added);
            if (Msg.empty()) {
                id != 0 ? counts.Update("boats") : counts.Add("boats");
                Msg = PutBoatDetails(id, b.BoatName, b.FullSailNo, model, owner);
            }
            if (!Msg.empty())
                return Msg;
        }
        for (const HandicapRow& h : rows.Handicaps) {
            int boat = 0, type = 0;
            bool added = false;
            Msg = FindBoatBySailNumber(h.SailNo, boat);
            if (Msg.empty() && boat == 0) {
                problems.push_back(ProblemPlace(file, h.Row, "Sail No") +
                                   "no boat of the register has the sail number " + h.SailNo);
                continue;
            }
            if (Msg.empty())
                Msg = FindOrAddHandicapType(h.HandicapType, type, added);
            CountFound(counts, "handicap types", added);
            if (!Msg.empty())
                return Msg;
            const RowSet same = Query(kHandicapOfDay, {boat, type, h.EffectiveFrom});
            const int id = same.IsEmpty() ? 0 : static_cast<int>(same(kIdColumn, 0).AsInt());
            if (id != 0 && !Update) {
                counts.Skip("handicaps");
                continue;
            }
            id != 0 ? counts.Update("handicaps") : counts.Add("handicaps");
            Msg = PutHandicapDetails(id, boat, static_cast<short>(type), NumberToText(h.Tcf),
                                     FormatDate(h.EffectiveFrom, "dd/mm/yyyy"),
                                     h.Expires ? FormatDate(*h.Expires, "dd/mm/yyyy") : "");
            if (!Msg.empty())
                return Msg;
        }
        if (!rows.Finishes.empty()) {
            RowSet statuses;
            Msg = GetStatus(statuses);
            std::map<std::string, int> statusOf;
            for (std::size_t r = 0; Msg.empty() && r < statuses.Rows(); ++r)
                statusOf[Lower(statuses(kStatusCode, r).ToText())] =
                    static_cast<int>(statuses(kStatusId, r).AsInt());
            std::map<long long, int> rowOfEntrant;
            for (const FinishRow& f : rows.Finishes) {
                RowSet found, start;
                if (Msg.empty())
                    Msg = GetBoatInRace(RaceId, f.Boat, found);
                if (!Msg.empty())
                    return Msg;
                // A name finds every boat whose name begins with it: the one named so wins.
                std::vector<std::size_t> hits;
                for (std::size_t r = 0; r < found.Rows(); ++r) {
                    if (!found(kFoundEntrant, r).IsNull() &&
                        (f.BoatColumn != "Boat" ||
                         Lower(found(kFoundBoatName, r).ToText()) == Lower(f.Boat)))
                        hits.push_back(r);
                }
                const std::string place = ProblemPlace(file, f.Row, f.BoatColumn);
                if (hits.size() != 1) {
                    problems.push_back(place + f.Boat +
                                       (hits.empty() ? " is not entered in this race"
                                                     : " is more than one boat of this race"));
                    continue;
                }
                const long long entrant = found(kFoundEntrant, hits[0]).AsInt();
                if (const auto [it, first] = rowOfEntrant.emplace(entrant, f.Row); !first) {
                    problems.push_back(place + "the boat of row " + std::to_string(it->second) +
                                       " again");
                    continue;
                }
                Msg = GetStartTimeForEntrant(RaceId, static_cast<int>(entrant), start);
                if (!Msg.empty())
                    return Msg;
                const std::string className = start(kStartClassName, 0).ToText();
                if (className.empty()) {
                    problems.push_back(place +
                                       "This boat has not been assigned a class.  Please "
                                       "check the entry details");
                    continue;
                }
                if (!start(kStartTime, 0).IsDate()) {
                    problems.push_back(place + "Please enter the start time for " + className);
                    continue;
                }
                const DateTime started = start(kStartTime, 0).AsDate();
                const DateTime day = f.Day ? *f.Day : AddDays(DatePart(started), f.NextDay ? 1 : 0);
                std::string time;
                if (f.TimeOfDay) {
                    const DateTime finish = day + std::chrono::seconds(*f.TimeOfDay);
                    if (finish <= started) {
                        problems.push_back(ProblemPlace(file, f.Row, "Finish") +
                                           "Finish time must be after start time");
                        continue;
                    }
                    time = FormatDate(finish, "hhmmss");
                }
                int status = kFinished;
                if (!f.Status.empty()) {
                    const auto known = statusOf.find(Lower(f.Status));
                    if (known == statusOf.end()) {
                        problems.push_back(ProblemPlace(file, f.Row, "Status") + "\"" + f.Status +
                                           "\" is not a finish status");
                        continue;
                    }
                    status = known->second;
                } else if (!f.TimeOfDay) {
                    problems.push_back(ProblemPlace(file, f.Row, "Status") +
                                       "Please select the finish status");
                    continue;
                }
                counts.Add("finishes");
                Msg = PutResult(RaceId, static_cast<int>(entrant), time,
                                FormatDate(day, "dd mmm yyyy"), status, f.PenaltyMins,
                                f.PenaltyPercent, f.PenaltyPlaces, f.Notes);
                if (!Msg.empty())
                    return Msg;
            }
        }
        if (!problems.empty())
            return ProblemsMessage(problems);
        if (Commit)
            all.Commit();
        return Msg;
    });
    Report.Summary = counts.Summary();
    if (!Report.Ignored.empty()) {
        Report.Summary += "ignored columns:";
        for (const std::string& name : Report.Ignored)
            Report.Summary += " \"" + name + "\"";
        Report.Summary += "\n";
    }
    return Msg;
}

}  // namespace tb
