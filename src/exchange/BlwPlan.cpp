#include <algorithm>
#include <map>
#include <set>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/ResultStatus.h"
#include "exchange/BlwImport.h"
#include "exchange/RowChecks.h"

namespace tb {

namespace {

using blw::Fields;
using blw::Text;

// Status codes of the Status table, and the codes of the other program scored as one of them.
const std::map<std::string, int> kStatusOfCode = {{"BFD", 1}, {"DNC", 2}, {"DNE", 3}, {"DNF", 4},
                                                  {"DNS", 5}, {"DSQ", 6}, {"OCS", 7}, {"RAF", 8},
                                                  {"RET", 4}, {"UFD", 1}};

// The problem of one row, named by its line and key.
struct RowFault {
    std::string message;
};

[[noreturn]] void Fault(const blw::Field& field, const std::string& key,
                        const std::string& problem) {
    throw RowFault{"E-Line " + std::to_string(field.line) + " (" + key + "): " + problem};
}

const blw::Field* Find(const Fields& fields, const std::string& key) {
    const auto it = fields.find(key);
    return it == fields.end() || it->second.value.empty() ? nullptr : &it->second;
}

std::string Trimmed(std::string text) {
    const auto first = text.find_first_not_of(" \t");
    const auto last = text.find_last_not_of(" \t");
    return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

std::string Upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return text;
}

std::optional<double> Rating(const Fields& fields, const std::string& key) {
    const blw::Field* field = Find(fields, key);
    if (!field)
        return std::nullopt;
    const auto rating = ParseNumber(Trimmed(field->value));
    if (!rating || *rating <= 0)
        Fault(*field, key, "the rating '" + field->value + "' is not a positive number");
    return rating;
}

// The factor Tallyboard multiplies elapsed time by: a Portsmouth number becomes 1000 / PN.
double Factor(const std::string& ratingSystem, double rating) {
    return ratingSystem == "PY" ? 1000.0 / rating : rating;
}

// The fleet a competitor is scored in and the field that names it.
std::pair<std::string, std::string> FleetOf(const Fields& comp) {
    for (const auto& [key, field] :
         {std::pair{"compfleet", "Fleet"}, std::pair{"compdivision", "Division"},
          std::pair{"compclass", "Class"}}) {
        const std::string value = Trimmed(Text(comp, key));
        if (!value.empty())
            return {value, field};
    }
    return {"All", "Fleet"};
}

const char* KeyOfField(const std::string& field) {
    const std::string lower = Upper(field);
    if (lower == "DIVISION")
        return "compdivision";
    if (lower == "CLASS")
        return "compclass";
    return "compfleet";
}

// A fleet name may carry a club's own suffix (" HPH"): a name matches when equal or when one
// is the other followed by a blank and more.
bool SameFleet(const std::string& a, const std::string& b) {
    const std::string x = Upper(Trimmed(a));
    const std::string y = Upper(Trimmed(b));
    const auto prefixed = [](const std::string& longer, const std::string& shorter) {
        return longer.size() > shorter.size() && longer.compare(0, shorter.size(), shorter) == 0 &&
               longer[shorter.size()] == ' ';
    };
    return x == y || prefixed(x, y) || prefixed(y, x);
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

// Whether a gun's selector starts a competitor: empty starts everyone; otherwise pairs of field
// and value, each compared with "=" or "<>" (the operators follow the pairs).
bool GunStarts(const std::string& selector, const Fields& comp) {
    const auto parts = Split(selector, '^');
    const std::size_t pairs = parts.size() % 3 == 0 ? parts.size() / 3 : parts.size() / 2;
    const bool withOperators = parts.size() % 3 == 0;
    for (std::size_t i = 0; i < pairs; ++i) {
        const std::string& field = parts[2 * i];
        const std::string& value = parts[2 * i + 1];
        if (Trimmed(field).empty() || Trimmed(value).empty())
            continue;
        const bool equal = SameFleet(Text(comp, KeyOfField(field)), value);
        const bool wantEqual = !(withOperators && Trimmed(parts[2 * pairs + i]) == "<>");
        if (equal != wantEqual)
            return false;
    }
    return true;
}

struct Method {
    short base = 0;
    std::string value = "1";
    bool operator==(const Method&) const = default;
};

// How the file scores a code: series entrants or boats in the race, plus a value; Score like
// chains are followed. None for a method Tallyboard has no counterpart for.
std::optional<Method> MethodOf(const blw::ScoringSystem& system, const std::string& code) {
    std::string current = code;
    for (int depth = 0; depth < 10; ++depth) {
        const auto it = std::find_if(system.codes.begin(), system.codes.end(),
                                     [&](const auto& c) { return Upper(c[0]) == current; });
        if (it == system.codes.end())
            return std::nullopt;
        const std::string method = Trimmed((*it)[1]);
        const std::string value = Trimmed((*it)[2]);
        if (method == "Score like") {
            current = Upper(value);
            continue;
        }
        const auto number = ParseNumber(value.empty() ? "0" : value);
        if (!number)
            return std::nullopt;
        if (method == "Boats in series +")
            return Method{0, NumberToText(*number)};
        if (method == "Boats in race +")
            return Method{1, NumberToText(*number)};
        return std::nullopt;
    }
    return std::nullopt;
}

const char* BaseText(short base) {
    return base == 0 ? "series entrants" : "boats in the race";
}

void PlanScoring(const blw::SeriesFile& File, const std::string& root, std::size_t racesSailed,
                 SeriesImport& Plan) {
    static const blw::ScoringSystem none;
    const auto it = File.scoring.find(root);
    const blw::ScoringSystem& system = it == File.scoring.end() ? none : it->second;
    Plan.scoringName = Trimmed(Text(system.fields, "scrname"));
    if (Plan.scoringName.empty())
        Plan.scoringName = "Imported scoring";
    for (std::size_t place = 0; place < 7; ++place)
        Plan.points[place] = std::to_string(place + 1);
    // Each group of statuses is scored as the file scores its first code.
    struct Group {
        const char* code;
        std::vector<const char*> others;
        short* base;
        std::size_t value;
    };
    const Group groups[] = {{"DNF", {"DNS", "OCS", "RET"}, &Plan.baseC, 7},
                            {"DSQ", {"BFD", "DNE", "UFD"}, &Plan.baseA, 8},
                            {"DNC", {}, &Plan.baseB, 9}};
    for (const Group& group : groups) {
        const auto method = MethodOf(system, group.code);
        const Method used = method.value_or(Method{});
        if (!method)
            Plan.scoringNotes.push_back(std::string(group.code) +
                                        " is scored as series entrants + 1: the file's method "
                                        "for it has no counterpart here");
        *group.base = used.base;
        Plan.points[group.value] = used.value;
        Plan.points[group.value + 3] = "0";
        for (const char* other : group.others) {
            const auto otherMethod = MethodOf(system, other);
            if (otherMethod && !(*otherMethod == used))
                Plan.scoringNotes.push_back(std::string(other) + " is scored like " + group.code +
                                            " (" + BaseText(used.base) + " + " + used.value +
                                            "), not as the file's " + BaseText(otherMethod->base) +
                                            " + " + otherMethod->value);
        }
    }
    // One rule wherever the count of discards rises within the races sailed. A discard system
    // holds five rules: the rises beyond them are left out and named, and the fifth rule's count
    // holds on to the end of the series.
    const blw::Field* list = Find(system.fields, "scrdiscardlist");
    if (!list)
        return;
    const std::size_t rules = Plan.discards[0].size();
    std::size_t line = 0;
    long previous = 0;
    std::string beyond;
    const auto counts = Split(list->value, ',');
    for (std::size_t i = 0; i < counts.size() && i < racesSailed; ++i) {
        const auto count = ParseNumber(Trimmed(counts[i]));
        if (!count || *count < 0)
            Fault(*list, "scrdiscardlist", "'" + counts[i] + "' is not a number of discards");
        if (static_cast<long>(*count) <= previous)
            continue;
        previous = static_cast<long>(*count);
        const std::string racesRun = std::to_string(i + 1);
        if (line == rules) {
            beyond += (beyond.empty() ? "" : ", ") + std::to_string(previous) + " from " +
                      racesRun + " races";
            continue;
        }
        Plan.discards[0][line] = racesRun;
        Plan.discards[1][line] = std::to_string(previous);
        ++line;
    }
    if (!beyond.empty())
        Plan.scoringNotes.push_back("the file's discards " + beyond +
                                    " are left out: a discard system holds five rules, so " +
                                    Plan.discards[1][rules - 1] + " are discarded from " +
                                    Plan.discards[0][rules - 1] + " races on");
}

// The rating system of a fleet: a child of the root system for that fleet, else the root's.
std::string RatingSystemOf(const blw::SeriesFile& File, const std::string& root,
                           const std::string& fleet) {
    // A system for exactly this fleet comes before one whose name differs by a suffix.
    for (const bool exact : {true, false}) {
        for (const auto& [handle, system] : File.scoring) {
            const std::string& value = Text(system.fields, "scrvalue");
            if (Text(system.fields, "scrparent") == root &&
                (exact ? Upper(Trimmed(value)) == Upper(fleet) : SameFleet(value, fleet)))
                return Trimmed(Text(system.fields, "scrratingsystem"));
        }
    }
    const auto it = File.scoring.find(root);
    const std::string rating = it == File.scoring.end()
                                   ? std::string()
                                   : Trimmed(Text(it->second.fields, "scrratingsystem"));
    return rating.empty() ? "None" : rating;
}

struct RaceOfFile {
    const blw::Race* race;
    double rank;
};

// The sailed races in racerank order, dated.
std::vector<const blw::Race*> PlanRaces(const blw::SeriesFile& File, int FileYear,
                                        SeriesImport& Plan) {
    std::vector<RaceOfFile> sailed;
    for (const blw::Race& race : File.races) {
        if (Trimmed(Text(race.fields, "racesailed")) != "1")
            continue;
        const auto rank = ParseNumber(Trimmed(Text(race.fields, "racerank")));
        sailed.push_back({&race, rank.value_or(1e9)});
    }
    std::stable_sort(sailed.begin(), sailed.end(),
                     [](const auto& a, const auto& b) { return a.rank < b.rank; });
    const std::string order = Text(File.series, "serdatespec");
    // The text a race's date is read from: its date, else its name.
    const auto dateText = [&](const blw::Race& race, bool& leading) {
        leading = false;
        const std::string date = Trimmed(Text(race.fields, "racedate"));
        if (!date.empty() && ParseLooseDate(date, order, 2000))
            return date;
        leading = true;
        return Trimmed(Text(race.fields, "racename"));
    };
    int year = FileYear;
    for (const auto& s : sailed) {
        bool leading = false;
        const std::string text = dateText(*s.race, leading);
        if (LooseDateHasYear(text, leading)) {
            if (const auto date = ParseLooseDate(text, order, FileYear, leading)) {
                year = YearOf(*date);
                break;
            }
        }
    }
    std::vector<const blw::Race*> races;
    std::vector<std::size_t> undated;
    for (const auto& s : sailed) {
        bool leading = false;
        const std::string text = dateText(*s.race, leading);
        const auto date = ParseLooseDate(text, order, year, leading);
        std::string name = Trimmed(Text(s.race->fields, "racename"));
        if (name.empty())
            name = "Race " + Trimmed(Text(s.race->fields, "racerank"));
        if (!date) {
            undated.push_back(Plan.races.size());
            Plan.undatedRaces.push_back(name);
        }
        Plan.races.push_back({name, date.value_or(DateTime{})});
        races.push_back(s.race);
    }
    // A race without a date keeps its place: it takes the date of the race before it (or after
    // it, or the first day of the year).
    for (std::size_t i : undated) {
        DateTime date = MakeDateTime(year, 1, 1);
        for (std::size_t j = i; j-- > 0;) {
            if (std::find(undated.begin(), undated.end(), j) == undated.end()) {
                date = Plan.races[j].date;
                break;
            }
        }
        if (date == MakeDateTime(year, 1, 1)) {
            for (std::size_t j = i + 1; j < Plan.races.size(); ++j) {
                if (std::find(undated.begin(), undated.end(), j) == undated.end()) {
                    date = Plan.races[j].date;
                    break;
                }
            }
        }
        Plan.races[i].date = date;
    }
    return races;
}

// "First Last", the first word the first name; written "Last, First" as the register's files
// write owners, it is read as they are.
void SplitName(const std::string& name, std::string& first, std::string& last) {
    const std::string whole = Trimmed(name);
    if (whole.find(',') != std::string::npos) {
        const PersonName person = SplitPersonName(whole);
        first = person.Firstname;
        last = person.Lastname;
        return;
    }
    const auto blank = whole.find(' ');
    first = blank == std::string::npos ? whole : whole.substr(0, blank);
    last = blank == std::string::npos ? std::string() : Trimmed(whole.substr(blank + 1));
}

bool HasAny(const Fields& cell, std::initializer_list<const char*> keys) {
    return std::any_of(keys.begin(), keys.end(), [&](const char* key) { return Find(cell, key); });
}

// Everything of one series (the primary scoring, or one second way of scoring boats).
struct SeriesPlanner {
    const blw::SeriesFile& file;
    const std::string& root;
    const std::vector<const blw::Race*>& races;
    SeriesImport& plan;
    ImportedSeries series;
    std::map<std::string, std::size_t> classOf;
    std::vector<std::string> ratingOf;
    std::vector<const blw::Competitor*> firstOf;
    std::set<std::pair<std::string, std::string>> boatsEntered;

    std::size_t ClassFor(const blw::Competitor& comp) {
        const auto [fleet, field] = FleetOf(comp.fields);
        const auto [at, added] = classOf.try_emplace(fleet, series.classes.size());
        if (added) {
            const std::string rating = RatingSystemOf(file, root, fleet);
            series.classes.push_back({fleet, rating});
            ratingOf.push_back(rating);
            firstOf.push_back(&comp);
        }
        return at->second;
    }

    void AddStarts() {
        for (std::size_t r = 0; r < races.size(); ++r) {
            for (std::size_t c = 0; c < series.classes.size(); ++c) {
                for (const blw::Gun& gun : races[r]->guns) {
                    if (!GunStarts(gun.selector, firstOf[c]->fields))
                        continue;
                    // A gun without a time (places only) is taken as fired at midday.
                    const bool untimed = gun.time.find_first_not_of(' ') == std::string::npos;
                    const auto time =
                        untimed ? std::optional<long long>(12 * 3600) : ParseClockTime(gun.time);
                    if (untimed && std::find(plan.gunsUntimed.begin(), plan.gunsUntimed.end(),
                                             plan.races[r].name) == plan.gunsUntimed.end())
                        plan.gunsUntimed.push_back(plan.races[r].name);
                    if (!time)
                        Fault({gun.time, gun.line}, "racestart",
                              "the gun time '" + gun.time + "' does not read as a time");
                    series.starts.push_back(
                        {r, c, plan.races[r].date + std::chrono::seconds(*time)});
                    break;
                }
            }
        }
    }

    std::optional<DateTime> GunOf(std::size_t race, std::size_t cls) const {
        for (const ImportedStart& start : series.starts)
            if (start.race == race && start.cls == cls)
                return start.gun;
        return std::nullopt;
    }

    // Whether the fleet's results in a race are places only: no rating and no times.
    bool PlacesOnly(std::size_t race, std::size_t cls,
                    const std::vector<const blw::Competitor*>& comps) const {
        if (ratingOf[cls] != "None")
            return false;
        for (const blw::Competitor* comp : comps) {
            const auto of = classOf.find(FleetOf(comp->fields).first);
            if (of == classOf.end() || of->second != cls)
                continue;
            const auto it = file.cells.find({comp->handle, races[race]->handle});
            if (it != file.cells.end() && HasAny(it->second, {"rft", "rele"}))
                return false;
        }
        return true;
    }

    // Whether the recorded places of a places-only race leave gaps (places held by boats then
    // scored by code): Tallyboard places the finishers behind them without the gap.
    bool PlacesCloseUp(std::size_t race, std::size_t cls) const {
        const auto gun = GunOf(race, cls);
        std::vector<long long> places;
        for (const ImportedEntrant& entrant : series.entrants)
            for (const ImportedResult& result : entrant.results)
                if (entrant.cls == cls && result.race == race && result.finish && gun &&
                    result.status == ResultStatus::kFinished)
                    places.push_back((*result.finish - *gun).count());
        std::sort(places.begin(), places.end());
        // Tied places share the first one's rank.
        for (std::size_t i = 0, first = 0; i < places.size(); ++i) {
            if (places[i] != places[first])
                first = i;
            if (places[i] != static_cast<long long>(first) + 1)
                return true;
        }
        return false;
    }

    void AddEntrant(const blw::Competitor& comp, const blw::Competitor& boatOf,
                    const std::vector<const blw::Competitor*>& comps) {
        ImportedEntrant entrant;
        entrant.cls = ClassFor(comp);
        const Fields& boat = boatOf.fields;
        SplitName(Text(boat, "comphelmname"), entrant.firstname, entrant.lastname);
        entrant.fullSailNo = Trimmed(Text(boat, "compsailno"));
        entrant.boatName = Trimmed(Text(boat, "compboat"));
        if (entrant.boatName.empty())
            entrant.boatName = Trimmed(Text(boat, "comphelmname"));
        if (entrant.boatName.empty())
            entrant.boatName = entrant.fullSailNo;
        // Results show the entrant's person: a boat without helm is named for itself.
        if (entrant.firstname.empty() && entrant.lastname.empty())
            entrant.lastname = entrant.boatName;
        // A boat is entered once in a series; a second competitor for it is left out.
        if (!boatsEntered.insert({entrant.fullSailNo, entrant.boatName}).second) {
            plan.scoringNotes.push_back(entrant.boatName + " " + entrant.fullSailNo +
                                        " is entered twice in " + series.title +
                                        "; the second entry is left out");
            return;
        }
        entrant.model = Trimmed(Text(boat, "compclass"));
        if (entrant.model.empty())
            entrant.model = series.classes[entrant.cls].name;
        const std::string& rating = ratingOf[entrant.cls];
        const auto standing = Rating(comp.fields, "comprating");
        bool perRace = false;
        for (const blw::Race* race : races) {
            const auto it = file.cells.find({comp.handle, race->handle});
            perRace = perRace || (it != file.cells.end() && Find(it->second, "rrat"));
        }
        if (rating == "None") {
            entrant.handicaps.push_back({1.0, plan.firstDay, std::nullopt});
        } else if (perRace) {
            // Progressive handicaps change race by race: each is valid on its race's day only.
            for (std::size_t r = 0; r < races.size(); ++r) {
                const auto it = file.cells.find({comp.handle, races[r]->handle});
                const auto own = it == file.cells.end() ? std::nullopt : Rating(it->second, "rrat");
                // Two races of one day share the first one's handicap.
                const bool dayTaken = std::any_of(
                    entrant.handicaps.begin(), entrant.handicaps.end(),
                    [&](const ImportedHandicap& h) { return h.from == plan.races[r].date; });
                if ((own || standing) && !dayTaken)
                    entrant.handicaps.push_back({Factor(rating, own ? *own : *standing),
                                                 plan.races[r].date, plan.races[r].date});
            }
        } else if (standing) {
            entrant.handicaps.push_back({Factor(rating, *standing), plan.firstDay, std::nullopt});
        }
        if (entrant.handicaps.empty())
            plan.ratingsMissing.push_back(entrant.boatName + " " + entrant.fullSailNo + " (" +
                                          series.classes[entrant.cls].name + ")");
        for (std::size_t r = 0; r < races.size(); ++r) {
            const auto it = file.cells.find({comp.handle, races[r]->handle});
            if (it == file.cells.end())
                continue;
            AddResult(entrant, r, it->second, PlacesOnly(r, entrant.cls, comps));
        }
        series.entrants.push_back(std::move(entrant));
    }

    void AddResult(ImportedEntrant& entrant, std::size_t r, const Fields& cell, bool placesOnly) {
        if (!HasAny(cell, {"rft", "rele", "rrecpos", "rpos", "rcod"}) ||
            Trimmed(Text(cell, "rrestyp")) == "0") {
            ++plan.leftovers;
            return;
        }
        ImportedResult result;
        result.race = r;
        const std::string code = Upper(Trimmed(Text(cell, "rcod")));
        if (!code.empty()) {
            const auto status = kStatusOfCode.find(code);
            result.status =
                status == kStatusOfCode.end() ? ResultStatus::kDidNotFinish : status->second;
            if (status == kStatusOfCode.end() ||
                (code != "DNC" && code != "DNS" && code != "DNF" && code != "DSQ" &&
                 code != "OCS" && code != "BFD" && code != "DNE" && code != "RAF")) {
                const std::string note = code + " as " + (result.status == 1 ? "BFD" : "DNF");
                if (std::find(plan.codesMapped.begin(), plan.codesMapped.end(), note) ==
                    plan.codesMapped.end())
                    plan.codesMapped.push_back(note);
            }
        }
        const auto gun = GunOf(r, entrant.cls);
        const DateTime day = plan.races[r].date;
        if (const blw::Field* rft = Find(cell, "rft")) {
            const auto time = ParseClockTime(rft->value);
            if (!time)
                Fault(*rft, "rft", "the finish time '" + rft->value + "' does not read as a time");
            result.finish = day + std::chrono::seconds(*time);
            // A finish earlier in the day than its gun is on the next day.
            if (gun && *result.finish < *gun)
                result.finish = *result.finish + std::chrono::hours(24);
        } else if (const blw::Field* rele = Find(cell, "rele")) {
            const auto time = ParseClockTime(rele->value);
            if (!time)
                Fault(*rele, "rele",
                      "the elapsed time '" + rele->value + "' does not read as a time");
            if (gun)
                result.finish = *gun + std::chrono::seconds(*time);
        } else if (const char* key = Find(cell, "rrecpos") ? "rrecpos" : "rpos";
                   Find(cell, key) && code.empty()) {
            // The place as recorded; the ranked place (rpos) counts boats scored by code too.
            const blw::Field& recorded = *Find(cell, key);
            const auto place = ParseNumber(Trimmed(recorded.value));
            if (!place || *place < 1)
                Fault(recorded, key, "the place '" + recorded.value + "' is not a place");
            // Places only: finishes one second apart from the gun in the recorded order.
            if (placesOnly)
                result.finish = gun.value_or(day + std::chrono::hours(12)) +
                                std::chrono::seconds(static_cast<long long>(*place));
        }
        if (!code.empty() || result.finish)
            entrant.results.push_back(result);
        else
            ++plan.leftovers;
    }
};

}  // namespace

std::string PlanSeriesImport(const blw::SeriesFile& File, const std::string& FileName, int FileYear,
                             SeriesImport& Plan) {
    try {
        SeriesImport plan;
        const auto races = PlanRaces(File, FileYear, plan);
        // A series not sailed yet still brings its entries, valid from the start of the year.
        plan.firstDay = races.empty() ? MakeDateTime(FileYear, 1, 1) : plan.races.front().date;
        std::string root = Trimmed(Text(File.series, "serscoringhandle"));
        if (File.scoring.find(root) == File.scoring.end()) {
            for (const auto& [handle, system] : File.scoring)
                if (Trimmed(Text(system.fields, "scrparent")) == "0" && root.empty())
                    root = handle;
        }
        PlanScoring(File, root, races.size(), plan);
        std::string title = Trimmed(Text(File.series, "serevent"));
        if (title.empty())
            title = Trimmed(Text(File.series, "sertitle"));
        if (title.empty())
            title = FileName;

        // Competitors left in the series, and the handles of primary entries among them.
        std::vector<const blw::Competitor*> comps;
        std::map<std::string, const blw::Competitor*> primaries;
        for (const blw::Competitor& comp : File.competitors) {
            // Excluded competitors and blank rows that name no boat or helm are left out.
            if (Trimmed(Text(comp.fields, "compexclude")) == "1" ||
                (Trimmed(Text(comp.fields, "compsailno")).empty() &&
                 Trimmed(Text(comp.fields, "compboat")).empty() &&
                 Trimmed(Text(comp.fields, "comphelmname")).empty()))
                continue;
            comps.push_back(&comp);
            const std::string alias = Trimmed(Text(comp.fields, "compalias"));
            if (alias.empty() || alias == "0")
                primaries[comp.handle] = &comp;
        }
        SeriesPlanner primary{File, root, races, plan, {title, {}, {}, {}}, {}, {}, {}, {}};
        std::map<std::string, SeriesPlanner> seconds;
        std::vector<std::pair<const blw::Competitor*, const blw::Competitor*>> aliases;
        for (const blw::Competitor* comp : comps) {
            const auto alias = primaries.find(Trimmed(Text(comp->fields, "compalias")));
            if (primaries.count(comp->handle) || alias == primaries.end())
                primary.ClassFor(*comp);
            else
                aliases.push_back({comp, alias->second});
        }
        primary.AddStarts();
        for (const blw::Competitor* comp : comps) {
            if (primaries.count(comp->handle) ||
                !primaries.count(Trimmed(Text(comp->fields, "compalias"))))
                primary.AddEntrant(*comp, *comp, comps);
        }
        for (const auto& [comp, boat] : aliases) {
            const std::string rating = RatingSystemOf(File, root, FleetOf(comp->fields).first);
            auto [at, added] =
                seconds.try_emplace(rating, SeriesPlanner{File,
                                                          root,
                                                          races,
                                                          plan,
                                                          {title + " (" + rating + ")", {}, {}, {}},
                                                          {},
                                                          {},
                                                          {},
                                                          {}});
            at->second.ClassFor(*comp);
        }
        for (auto& [rating, planner] : seconds)
            planner.AddStarts();
        for (const auto& [comp, boat] : aliases) {
            const std::string rating = RatingSystemOf(File, root, FleetOf(comp->fields).first);
            seconds.at(rating).AddEntrant(*comp, *boat, comps);
        }
        // Result cells of competitors and races the file no longer has.
        std::set<std::string> compHandles;
        std::set<std::string> raceHandles;
        for (const blw::Competitor* comp : comps)
            compHandles.insert(comp->handle);
        for (const blw::Race* race : races)
            raceHandles.insert(race->handle);
        for (const auto& [key, cell] : File.cells)
            if (!compHandles.count(key.first) || !raceHandles.count(key.second))
                ++plan.leftovers;

        for (std::size_t r = 0; r < races.size(); ++r) {
            for (std::size_t c = 0; c < primary.series.classes.size(); ++c) {
                if (!primary.PlacesOnly(r, c, comps))
                    continue;
                const std::string race =
                    plan.races[r].name + " (" + primary.series.classes[c].name + ")";
                plan.placesOnlyRaces.push_back(race);
                if (primary.PlacesCloseUp(r, c))
                    plan.placesClosedUp.push_back(race);
            }
        }
        plan.series.push_back(std::move(primary.series));
        for (auto& [rating, planner] : seconds)
            plan.series.push_back(std::move(planner.series));
        Plan = std::move(plan);
        return {};
    } catch (const RowFault& fault) {
        return fault.message;
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "PlanSeriesImport", &pending);
    }
}

}  // namespace tb
