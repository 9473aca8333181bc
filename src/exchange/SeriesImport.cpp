#include <sys/stat.h>

#include "data/Connection.h"

#include <fstream>
#include <set>
#include <sstream>
#include <tuple>

#include "data/Connection.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/RunTimeFault.h"
#include "data/Transaction.h"
#include "exchange/BlwImport.h"

namespace tb {

namespace {

constexpr const char* kScoringNamed = "SELECT Scoring.Id FROM Scoring WHERE Description = ?1";
constexpr const char* kDiscardsNamed =
    "SELECT DiscardSystem.Id FROM DiscardSystem WHERE Description = ?1";
constexpr const char* kAddSeries =
    "INSERT INTO Series (Title, SubseriesTitle, Scoring, Discards) VALUES (?1, NULL, ?2, ?3)";
constexpr const char* kAddRace =
    "INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries, "
    "Reference) VALUES (?1, ?2, ?3, 0, NULL)";
constexpr const char* kAddClass =
    "INSERT INTO Class (HandicapType, Series, MinTCF, ClassName) VALUES (?1, ?2, 0, ?3)";
constexpr const char* kSetGun =
    "UPDATE Start SET StartTime = ?1 WHERE Schedule = ?2 AND Class = ?3";
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
// Every look-up by name gives the Id alone.
constexpr std::size_t kIdColumn = 0;

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
        // The register operations below each run in a part of this one transaction; a message
        // from any of them leaves the database as it was.
        Transaction all(*Cn);
        const auto idOf = [&](const char* sql, const std::string& name) {
            const RowSet rows = Query(sql, {name});
            return rows.IsEmpty() ? 0 : static_cast<int>(rows(kIdColumn, 0).AsInt());
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

        // The summary counts each record once: reused are those the database held before.
        std::set<std::pair<std::string, int>> addedNow, reusedNow;
        const auto count = [&](const char* kind, int id, bool added, int& adds, int& reuses) {
            if (added) {
                addedNow.insert({kind, id});
                ++adds;
            } else if (!addedNow.count({kind, id}) && reusedNow.insert({kind, id}).second) {
                ++reuses;
            }
        };
        // The boat with the same full sail number and name, else a new one.
        const auto findOrAddBoat = [&](const ImportedEntrant& entrant, int model, int owner,
                                       int& id) {
            RowSet found, detail;
            std::string Msg = FindBoat(entrant.fullSailNo, found);
            for (std::size_t r = 0; Msg.empty() && r < found.Rows(); ++r) {
                const int candidate = static_cast<int>(found(FoundCol::Id, r).AsInt());
                Msg = GetBoatDetails(candidate, detail);
                if (Msg.empty() &&
                    detail(BoatDetailCol::BoatName, 0).ToText() == entrant.boatName) {
                    id = candidate;
                    return std::pair{Msg, false};
                }
            }
            id = 0;
            if (Msg.empty())
                Msg = PutBoatDetails(id, entrant.boatName, entrant.fullSailNo, model, owner);
            return std::pair{Msg, true};
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
            std::vector<int> classIds, typeIds;
            for (const ImportedClass& cls : series.classes) {
                int type = 0;
                bool added = false;
                Msg = FindOrAddHandicapType(cls.handicapType, type, added);
                if (!Msg.empty())
                    return Msg;
                Execute(kAddClass, {type, seriesId, cls.name});
                classIds.push_back(static_cast<int>(LastInsertId()));
                typeIds.push_back(type);
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
                int person = 0, model = 0, boat = 0;
                bool added = false;
                Msg = FindOrAddPerson(entrant.firstname, entrant.lastname, person, added);
                count("person", person, added, counts.peopleAdded, counts.peopleReused);
                if (Msg.empty())
                    Msg = FindOrAddModel(entrant.model, model, added);
                count("model", model, added, counts.modelsAdded, counts.modelsReused);
                if (Msg.empty())
                    std::tie(Msg, added) = findOrAddBoat(entrant, model, person, boat);
                count("boat", boat, added, counts.boatsAdded, counts.boatsReused);
                if (!Msg.empty())
                    return Msg;
                const int type = typeIds[entrant.cls];
                for (const ImportedHandicap& h : entrant.handicaps) {
                    const Value expires = h.expires ? Value(*h.expires) : Value();
                    const RowSet same =
                        Query(kSameHandicap, {boat, type, h.factor, h.from, expires});
                    int id = same.IsEmpty() ? 0 : static_cast<int>(same(kIdColumn, 0).AsInt());
                    if (id == 0) {
                        Execute(kAddHandicap, {type, boat, h.factor, h.from, expires, Now()});
                        id = static_cast<int>(LastInsertId());
                    }
                    count("handicap", id, same.IsEmpty(), counts.handicapsAdded,
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
        all.Commit();
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
    list(
        "Places-only races with places held by boats scored by code (the finishers behind "
        "them move up)",
        Plan.placesClosedUp);
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

std::string clResults::ImportSeriesFile(const std::string& FilePath, std::string& Summary) {
    try {
        return ImportFile(*this, FilePath, Summary);
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "ImportSeriesFile", &pending);
    }
}

}  // namespace tb
