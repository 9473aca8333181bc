#include <sys/stat.h>

#include <fstream>
#include <set>
#include <sstream>

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/RunTimeFault.h"
#include "exchange/BlwImport.h"

namespace tb {

namespace {

constexpr const char* kScoringNamed = "SELECT Scoring.Id FROM Scoring WHERE Description = ?1";
constexpr const char* kDiscardsNamed =
    "SELECT DiscardSystem.Id FROM DiscardSystem WHERE Description = ?1";
constexpr const char* kHandicapTypeNamed =
    "SELECT HandicapType.Id FROM HandicapType WHERE Description = ?1";
constexpr const char* kAddHandicapType = "INSERT INTO HandicapType (Description) VALUES (?1)";
constexpr const char* kAddSeries =
    "INSERT INTO Series (Title, SubseriesTitle, Scoring, Discards) VALUES (?1, NULL, ?2, ?3)";
constexpr const char* kAddRace =
    "INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries, "
    "Reference) VALUES (?1, ?2, ?3, 0, NULL)";
constexpr const char* kAddClass =
    "INSERT INTO Class (HandicapType, Series, MinTCF, ClassName) VALUES (?1, ?2, 0, ?3)";
constexpr const char* kSetGun =
    "UPDATE Start SET StartTime = ?1 WHERE Schedule = ?2 AND Class = ?3";
constexpr const char* kPersonNamed =
    "SELECT People.Id FROM People WHERE People.Firstname = ?1 AND People.Lastname = ?2";
constexpr const char* kAddPerson =
    "INSERT INTO People (Firstname, Lastname, ClubMember) VALUES (?1, ?2, 0)";
constexpr const char* kModelNamed = "SELECT BoatType.Id FROM BoatType WHERE Model = ?1";
constexpr const char* kAddModel = "INSERT INTO BoatType (Model, LOA, Draft) VALUES (?1, 0, 0)";
constexpr const char* kBoatNamed =
    "SELECT Boat.Id FROM Boat WHERE Boat.FullSailNo = ?1 AND Boat.BoatName = ?2";
constexpr const char* kAddBoat =
    "INSERT INTO Boat (BoatName, FullSailNo, SailNo, BoatType, Owner) "
    "VALUES (?1, ?2, ?3, ?4, ?5)";
constexpr const char* kSameHandicap = R"sql(
SELECT Handicap.Id FROM Handicap
WHERE Handicap.Boat = ?1 AND Handicap.HandicapType = ?2 AND Handicap.Handicap = ?3
  AND Handicap.EffectiveFrom = ?4 AND Handicap.Expires IS NOT DISTINCT FROM ?5)sql";
constexpr const char* kAddHandicap = R"sql(
INSERT INTO Handicap (HandicapType, Boat, Handicap, EffectiveFrom, Expires, ModifyDate)
VALUES (?1, ?2, ?3, ?4, ?5, ?6))sql";
constexpr const char* kAddEntrant = R"sql(
INSERT INTO Entrant (Boat, Series, EntrantType, Entrant, EntryDate, NameOnResults, Class)
VALUES (?1, ?2, 3, ?3, ?4, NULL, ?5))sql";
constexpr const char* kEnter = "INSERT INTO EntryList (Entrant, Schedule) VALUES (?1, ?2)";
constexpr const char* kAddResult = R"sql(
INSERT INTO Results (Schedule, Entrant, FinishTime, Status, PenaltyMins, PenaltyPercent,
                     PenaltyPoints, Notes)
VALUES (?1, ?2, ?3, ?4, 0, 0, 0, NULL))sql";

// A name no row of the table holds yet: the name itself, else with " (2)", " (3)" ...
template <typename Taken>
std::string FreeName(const std::string& name, Taken taken) {
    std::string candidate = name;
    for (int n = 2; taken(candidate); ++n)
        candidate = name + " (" + std::to_string(n) + ")";
    return candidate;
}

std::string Listed(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items)
        text += (text.empty() ? "" : ", ") + item;
    return text;
}

}  // namespace

std::string clResults::ImportSeries(const SeriesImport& Plan, ImportCounts& Counts) {
    ImportCounts counts;
    const std::string Msg = Run("ImportSeries", Shape::Store, [&] {
        const auto idOf = [&](const char* sql, const std::string& name) {
            const RowSet rows = Query(sql, {name});
            return rows.IsEmpty() ? 0 : static_cast<int>(rows(0, 0).AsInt());
        };
        const std::string scoringName = FreeName(
            Plan.scoringName, [&](const std::string& n) { return idOf(kScoringNamed, n) != 0; });
        const std::string discardName = FreeName(
            Plan.scoringName, [&](const std::string& n) { return idOf(kDiscardsNamed, n) != 0; });
        std::string Msg = PutScoring(0, scoringName, 0, discardName, Plan.baseC, Plan.baseA,
                                     Plan.baseB, Plan.points, Plan.discards);
        if (!Msg.empty())
            return Msg;
        const int scoring = idOf(kScoringNamed, scoringName);
        const int discards = idOf(kDiscardsNamed, discardName);

        std::map<std::string, int> handicapTypes;
        const auto handicapType = [&](const std::string& name) {
            int& id = handicapTypes[name];
            if (id == 0)
                id = idOf(kHandicapTypeNamed, name);
            if (id == 0) {
                Execute(kAddHandicapType, {name});
                id = static_cast<int>(LastInsertId());
            }
            return id;
        };
        // The summary counts each record once: reused are those the database held before.
        std::set<std::pair<const char*, int>> addedNow, reusedNow;
        const auto findOrAdd = [&](const char* find, const std::vector<Value>& key, const char* add,
                                   const std::vector<Value>& row, int& added, int& reused) {
            const RowSet rows = Query(find, key);
            if (!rows.IsEmpty()) {
                const int id = static_cast<int>(rows(0, 0).AsInt());
                if (addedNow.count({find, id}) == 0 && reusedNow.insert({find, id}).second)
                    ++reused;
                return id;
            }
            Execute(add, row);
            ++added;
            const int id = static_cast<int>(LastInsertId());
            addedNow.insert({find, id});
            return id;
        };

        for (const ImportedSeries& series : Plan.series) {
            Execute(kAddSeries, {series.title, scoring, discards});
            const int seriesId = static_cast<int>(LastInsertId());
            counts.seriesIds.push_back(seriesId);
            std::vector<int> raceIds;
            for (const ImportedRace& race : Plan.races) {
                Execute(kAddRace, {seriesId, race.name, race.date});
                raceIds.push_back(static_cast<int>(LastInsertId()));
            }
            std::vector<int> classIds;
            for (const ImportedClass& cls : series.classes) {
                Execute(kAddClass, {handicapType(cls.handicapType), seriesId, cls.name});
                classIds.push_back(static_cast<int>(LastInsertId()));
            }
            for (int raceId : raceIds) {
                RowSet starts;
                Msg = GetStartTimes(seriesId, raceId, starts);
                if (!Msg.empty())
                    return Msg;
            }
            for (const ImportedStart& start : series.starts)
                Execute(kSetGun, {start.gun, raceIds[start.race], classIds[start.cls]});

            for (const ImportedEntrant& entrant : series.entrants) {
                const int person = findOrAdd(kPersonNamed, {entrant.firstname, entrant.lastname},
                                             kAddPerson, {entrant.firstname, entrant.lastname},
                                             counts.peopleAdded, counts.peopleReused);
                const int model =
                    findOrAdd(kModelNamed, {entrant.model}, kAddModel, {entrant.model},
                              counts.modelsAdded, counts.modelsReused);
                std::string digits;
                for (char c : entrant.fullSailNo)
                    if (c >= '0' && c <= '9' && digits.size() < 9)
                        digits += c;
                const int boat =
                    findOrAdd(kBoatNamed, {entrant.fullSailNo, entrant.boatName}, kAddBoat,
                              {entrant.boatName, entrant.fullSailNo,
                               digits.empty() ? 0 : std::stoi(digits), model, person},
                              counts.boatsAdded, counts.boatsReused);
                const int type = handicapType(series.classes[entrant.cls].handicapType);
                for (const ImportedHandicap& h : entrant.handicaps) {
                    const Value expires = h.expires ? Value(*h.expires) : Value();
                    findOrAdd(kSameHandicap, {boat, type, h.factor, h.from, expires}, kAddHandicap,
                              {type, boat, h.factor, h.from, expires, Now()}, counts.handicapsAdded,
                              counts.handicapsReused);
                }
                Execute(kAddEntrant,
                        {boat, seriesId, person, Plan.firstDay, classIds[entrant.cls]});
                const int entrantId = static_cast<int>(LastInsertId());
                ++counts.entries;
                for (int raceId : raceIds)
                    Execute(kEnter, {entrantId, raceId});
                for (const ImportedResult& result : entrant.results) {
                    Execute(kAddResult,
                            {raceIds[result.race], entrantId,
                             result.finish ? Value(*result.finish) : Value(), result.status});
                    ++counts.results;
                }
            }
        }
        return std::string();
    });
    if (Msg.empty())
        Counts = counts;
    return Msg;
}

std::string ImportSummaryText(const SeriesImport& Plan, const ImportCounts& Counts) {
    std::ostringstream out;
    for (std::size_t i = 0; i < Plan.series.size() && i < Counts.seriesIds.size(); ++i)
        out << "Series " << Counts.seriesIds[i] << ": " << Plan.series[i].title
            << " (classes: " << Plan.series[i].classes.size() << ")\n";
    out << "Races: " << Plan.races.size() << "\n"
        << "People: " << Counts.peopleAdded << " added, " << Counts.peopleReused << " reused\n"
        << "Boat models: " << Counts.modelsAdded << " added, " << Counts.modelsReused << " reused\n"
        << "Boats: " << Counts.boatsAdded << " added, " << Counts.boatsReused << " reused\n"
        << "Handicaps: " << Counts.handicapsAdded << " added, " << Counts.handicapsReused
        << " reused\n"
        << "Entries: " << Counts.entries << "\n"
        << "Results: " << Counts.results << "\n";
    const auto list = [&](const char* caption, const std::vector<std::string>& items) {
        if (!items.empty())
            out << caption << ": " << Listed(items) << "\n";
    };
    list("Codes mapped", Plan.codesMapped);
    list("Places-only races", Plan.placesOnlyRaces);
    list("Races without a date", Plan.undatedRaces);
    list("Races without a gun time (started at 12:00:00)", Plan.gunsUntimed);
    list("Boats without a rating (listed in the race's problem report)", Plan.ratingsMissing);
    list("Scored differently", Plan.scoringNotes);
    if (Plan.leftovers > 0)
        out << "Leftover result cells ignored: " << Plan.leftovers << "\n";
    return out.str();
}

namespace {

// Reading, planning and writing; a fault the steps do not foresee is caught by the caller.
std::string ImportFile(clResults& Db, const std::string& Path, std::string& Summary) {
    std::ifstream in(Path, std::ios::binary);
    if (!in)
        return "E-Cannot read the file " + Path;
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    blw::SeriesFile file;
    std::string Msg = blw::ReadSeriesFile(bytes, file);
    if (!Msg.empty())
        return Msg;
    struct stat status {};
    int year = YearOf(Today());
    if (::stat(Path.c_str(), &status) == 0)
        year = YearOf(DateTime(std::chrono::seconds(status.st_mtime)));
    std::string name = Path.substr(Path.find_last_of('/') + 1);
    if (const auto dot = name.rfind('.'); dot != std::string::npos && dot > 0)
        name.erase(dot);
    SeriesImport plan;
    Msg = PlanSeriesImport(file, name, year, plan);
    if (!Msg.empty())
        return Msg;
    ImportCounts counts;
    Msg = Db.ImportSeries(plan, counts);
    if (Msg.empty())
        Summary = ImportSummaryText(plan, counts);
    return Msg;
}

}  // namespace

std::string ImportSeriesFile(clResults& Db, const std::string& Path, std::string& Summary) {
    try {
        return ImportFile(Db, Path, Summary);
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "ImportSeriesFile", &pending);
    }
}

}  // namespace tb
