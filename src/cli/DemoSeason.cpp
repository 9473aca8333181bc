#include "cli/DemoSeason.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <stdlib.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <vector>

#include "app/Globals.h"
#include "data/Connection.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/ResultStatus.h"
#include "data/Schema.h"
#include "data/clResults.h"

namespace tb::cli {

namespace {

// A small generator of our own so that a seed gives the same season with every standard
// library (the library's distributions may differ between implementations).
class Dice {
public:
    explicit Dice(std::uint32_t seed) : state_(seed * 0x9E3779B97F4A7C15ull + 1) {}
    std::uint32_t Next() {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return static_cast<std::uint32_t>((state_ * 0x2545F4914F6CDD1Dull) >> 32);
    }
    int Below(int n) { return static_cast<int>(Next() % static_cast<std::uint32_t>(n)); }
    double Unit() { return Next() / 4294967296.0; }
    // Roughly normal, mean 0 and deviation 1: the sum of twelve uniform numbers less six.
    double Normal() {
        double sum = 0;
        for (int i = 0; i < 12; ++i)
            sum += Unit();
        return sum - 6;
    }
    bool Chance(double p) { return Unit() < p; }

private:
    std::uint64_t state_;
};

struct Model {
    const char* name;
    double loa;
    double draft;
    double tcf;
};

// Four fleets a club would split its handicap racing into; the fourth is the multihulls.
const std::array<std::vector<Model>, 4> kFleets = {{
    {{"Sigma 38", 11.6, 1.9, 1.010},
     {"First 40.7", 12.0, 2.2, 1.080},
     {"J/109", 10.8, 2.0, 1.045},
     {"X-37", 11.3, 2.1, 1.060}},
    {{"Sigma 33", 10.0, 1.7, 0.935},
     {"J/92", 9.2, 1.7, 0.960},
     {"Elan 333", 10.0, 1.8, 0.955},
     {"Dehler 34", 10.3, 1.9, 0.975}},
    {{"Contessa 32", 9.8, 1.7, 0.865},
     {"Westerly Fulmar", 9.7, 1.5, 0.870},
     {"Hunter 707", 7.0, 1.2, 0.880},
     {"Jaguar 25", 7.6, 1.3, 0.845}},
    {{"Dragonfly 800", 8.0, 0.3, 1.150},
     {"Corsair 28", 8.7, 0.4, 1.180},
     {"Firebird", 6.0, 0.5, 1.120}},
}};

constexpr const char* kFirstNames[] = {
    "Alice", "Ben",   "Claire", "David", "Emma",   "Finn",  "Grace", "Harry",  "Isla",  "Jack",
    "Kate",  "Liam",  "Megan",  "Niall", "Olive",  "Peter", "Quinn", "Ruth",   "Sam",   "Tom",
    "Una",   "Vince", "Wendy",  "Xavi",  "Yasmin", "Zoe",   "Amir",  "Bryony", "Conor", "Dina"};
constexpr const char* kLastNames[] = {
    "Archer",  "Baxter", "Carter",  "Dawson", "Ellis",  "Fletcher", "Gibson",  "Hughes",
    "Irwin",   "Jarvis", "Kennedy", "Lawson", "Morgan", "Nolan",    "O'Neill", "Parker",
    "Quigley", "Reid",   "Shaw",    "Turner", "Upton",  "Vaughan",  "Walsh",   "Young"};
constexpr const char* kBoatNames[] = {
    "Aurora",    "Blue Heron", "Cormorant",   "Dawn Treader", "Eider",       "Free Spirit",
    "Gannet",    "Halcyon",    "Island Wind", "Jester",       "Kittiwake",   "Lively Lady",
    "Moonshine", "Nimbus",     "Osprey",      "Puffin",       "Quicksilver", "Red Admiral",
    "Sea Otter", "Tern",       "Undaunted",   "Valkyrie",     "Whimbrel",    "Xanadu",
    "Yellowfin", "Zephyr",     "Arctic Tern", "Bella",        "Curlew",      "Dolphin"};
constexpr const char* kRomans[] = {"", " II", " III", " IV", " V", " VI", " VII", " VIII"};

constexpr int kYear = 2026;

std::string Stored(DateTime t) {
    return ToStoredDateTime(t);
}

}  // namespace

namespace {

std::string CreateDemoFile(const std::string& path, const DemoSize& size) {
    std::string Msg = CreateDatabase(path);
    if (!Msg.empty())
        return Msg;
    try {
        Dice dice(size.seed);
        SQLite::Database db(path, SQLite::OPEN_READWRITE);
        SQLite::Transaction transaction(db);

        db.exec(
            "UPDATE Settings SET Value = 'Riverside Sailing Club' WHERE Parameter = 'Header';"
            "UPDATE Settings SET Value = 'Provisional until the protest time limit has passed' "
            "WHERE Parameter = 'Comment'");
        // The new database's own handicap type (Id 1) becomes the club's.
        db.exec(
            "UPDATE HandicapType SET Description = 'Club TCF' WHERE Id = 1;"
            "INSERT INTO HandicapType (Id, Description) VALUES (2, 'Multihull TCF')");

        SQLite::Statement addModel(
            db, "INSERT INTO BoatType (Model, LOA, Draft) VALUES (:model, :loa, :draft)");
        std::array<std::vector<std::int64_t>, 4> modelIds;
        for (std::size_t f = 0; f < kFleets.size(); ++f) {
            for (const Model& m : kFleets[f]) {
                addModel.bind(":model", m.name);
                addModel.bind(":loa", m.loa);
                addModel.bind(":draft", m.draft);
                addModel.exec();
                addModel.reset();
                modelIds[f].push_back(db.getLastInsertRowid());
            }
        }

        db.exec(
            "INSERT INTO Series (Id, Title, SubseriesTitle, Scoring, Discards) VALUES "
            "(1, 'Summer Series " +
            std::to_string(kYear) + "', 'Wednesday Evenings', 1, 1)");

        SQLite::Statement addClass(db,
                                   "INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) "
                                   "VALUES (1, :name, :type, 0)");
        std::vector<std::int64_t> classIds;
        for (int c = 0; c < size.classes; ++c) {
            const bool multihulls = c == 3;
            addClass.bind(":name",
                          multihulls ? std::string("Multihull") : "Class " + std::to_string(c + 1));
            addClass.bind(":type", multihulls ? 2 : 1);
            addClass.exec();
            addClass.reset();
            classIds.push_back(db.getLastInsertRowid());
        }

        // Races through the season, every other one also counting for the evening sub-series.
        const DateTime seasonStart = MakeDateTime(kYear, 4, 1);
        const int spacing = std::max(1, 180 / std::max(1, size.races));
        SQLite::Statement addRace(db,
                                  "INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries, "
                                  "Reference) VALUES (1, :name, :date, :sub, :ref)");
        std::vector<std::int64_t> raceIds;
        std::vector<DateTime> raceDates;
        std::vector<bool> inSubSeries;
        for (int r = 0; r < size.races; ++r) {
            const DateTime date = AddDays(seasonStart, r * spacing);
            addRace.bind(":name", "Race " + std::to_string(r + 1));
            addRace.bind(":date", Stored(date));
            addRace.bind(":sub", r % 2);
            addRace.bind(":ref", "R" + std::to_string(r + 1));
            addRace.exec();
            addRace.reset();
            raceIds.push_back(db.getLastInsertRowid());
            raceDates.push_back(date);
            inSubSeries.push_back(r % 2 == 1);
        }

        SQLite::Statement addPerson(
            db,
            "INSERT INTO People (Firstname, Lastname, ClubMember) VALUES (:first, :last, :member)");
        SQLite::Statement addBoat(
            db,
            "INSERT INTO Boat (BoatName, BoatType, FullSailNo, SailNo, Owner) "
            "VALUES (:name, :model, :fullSailNo, :sailNo, :owner)");
        SQLite::Statement addHandicap(
            db,
            "INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom, Expires, "
            "ModifyDate) VALUES (:boat, :type, :tcf, :from, :expires, :modified)");
        SQLite::Statement addEntrant(
            db,
            "INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant, EntryDate, "
            "NameOnResults) VALUES (1, :boat, :class, :type, :person, :date, :name)");
        SQLite::Statement enter(
            db, "INSERT INTO EntryList (Entrant, Schedule) VALUES (:entrant, :race)");

        struct Boat {
            std::int64_t entrant;
            std::size_t classIndex;
            double tcf;
            double skill;  // a steady edge or lag, as a fraction of the course time
            std::vector<bool> races;
        };
        std::vector<Boat> boats;
        const DateTime ratingDate = MakeDateTime(kYear, 1, 1);
        for (int b = 0; b < size.boats; ++b) {
            const std::size_t classIndex = static_cast<std::size_t>(b % size.classes);
            const auto& fleet = kFleets[classIndex % kFleets.size()];
            const std::size_t modelIndex =
                static_cast<std::size_t>(dice.Below(static_cast<int>(fleet.size())));
            const Model& model = fleet[modelIndex];
            // Two sister ships rated alike open the first fleet, so the season has a tie.
            const bool sisterShip = classIndex == 0 && b < size.classes * 2;
            const double tcf = sisterShip
                                   ? kFleets[0][0].tcf
                                   : std::round((model.tcf + dice.Normal() * 0.008) * 1000) / 1000;

            addPerson.bind(":first",
                           kFirstNames[dice.Below(static_cast<int>(std::size(kFirstNames)))]);
            addPerson.bind(":last",
                           kLastNames[dice.Below(static_cast<int>(std::size(kLastNames)))]);
            addPerson.bind(":member", dice.Chance(0.8) ? 1 : 0);
            addPerson.exec();
            addPerson.reset();
            const std::int64_t person = db.getLastInsertRowid();

            const int nameIndex = b % static_cast<int>(std::size(kBoatNames));
            const int generation = b / static_cast<int>(std::size(kBoatNames));
            std::string name = kBoatNames[nameIndex];
            if (generation < static_cast<int>(std::size(kRomans)))
                name += kRomans[generation];
            else
                name += " " + std::to_string(generation + 1);
            const int sailNo = 1000 + b * 7 % 9000 + b / 1286;
            addBoat.bind(":name", name);
            addBoat.bind(":model", sisterShip ? modelIds[0][0]
                                              : modelIds[classIndex % kFleets.size()][modelIndex]);
            addBoat.bind(":fullSailNo", "GBR " + std::to_string(sailNo));
            addBoat.bind(":sailNo", sailNo);
            addBoat.bind(":owner", person);
            addBoat.exec();
            addBoat.reset();
            const std::int64_t boat = db.getLastInsertRowid();

            // A few boats are re-rated in mid-season: the old rating expires the day before.
            const int handicapType = classIndex == 3 ? 2 : 1;
            const bool rerated = !sisterShip && dice.Chance(0.05) && size.races > 2;
            const DateTime change = raceDates[raceDates.size() / 2];
            addHandicap.bind(":boat", boat);
            addHandicap.bind(":type", handicapType);
            addHandicap.bind(":tcf", tcf);
            addHandicap.bind(":from", Stored(ratingDate));
            if (rerated)
                addHandicap.bind(":expires", Stored(AddDays(change, -1)));
            else
                addHandicap.bind(":expires");
            addHandicap.bind(":modified", Stored(ratingDate));
            addHandicap.exec();
            addHandicap.reset();
            double raceTcf = tcf;
            if (rerated) {
                raceTcf = tcf + 0.010;
                addHandicap.bind(":boat", boat);
                addHandicap.bind(":type", handicapType);
                addHandicap.bind(":tcf", raceTcf);
                addHandicap.bind(":from", Stored(change));
                addHandicap.bind(":expires");
                addHandicap.bind(":modified", Stored(change));
                addHandicap.exec();
                addHandicap.reset();
            }

            // Most boats race the whole series; some only the evenings, the weekends or a few.
            const int roll = dice.Below(100);
            const int entrantType = sisterShip  ? 0
                                    : roll < 70 ? 0
                                    : roll < 85 ? 3
                                    : roll < 95 ? 1
                                                : 2;
            addEntrant.bind(":boat", boat);
            addEntrant.bind(":class", classIds[classIndex]);
            addEntrant.bind(":type", entrantType);
            addEntrant.bind(":person", person);
            addEntrant.bind(":date", Stored(AddDays(seasonStart, -dice.Below(30) - 1)));
            if (dice.Chance(0.05))
                addEntrant.bind(
                    ":name",
                    std::string(kFirstNames[dice.Below(static_cast<int>(std::size(kFirstNames)))]) +
                        " & crew");
            else
                addEntrant.bind(":name");
            addEntrant.exec();
            addEntrant.reset();
            const std::int64_t entrant = db.getLastInsertRowid();

            Boat entry{entrant, classIndex, tcf, dice.Normal() * 0.02, {}};
            for (std::size_t r = 0; r < raceIds.size(); ++r) {
                const bool entered = entrantType == 1   ? inSubSeries[r]
                                     : entrantType == 2 ? dice.Chance(0.3)
                                                        : true;
                entry.races.push_back(entered);
                if (!entered)
                    continue;
                enter.bind(":entrant", entrant);
                enter.bind(":race", raceIds[r]);
                enter.exec();
                enter.reset();
            }
            // The boat races on its new rating after the change.
            entry.tcf = raceTcf;
            boats.push_back(std::move(entry));
        }

        SQLite::Statement addStart(db,
                                   "INSERT INTO Start (Schedule, Class, StartTime, TopNote, "
                                   "Footnote) VALUES (:race, :class, :time, :note, :footnote)");
        SQLite::Statement addResult(
            db,
            "INSERT INTO Results (Schedule, Entrant, FinishTime, Status, PenaltyMins, "
            "PenaltyPercent, PenaltyPoints, Notes) VALUES (:race, :entrant, :finish, :status, "
            ":mins, "
            ":percent, :points, :notes)");
        for (std::size_t r = 0; r < raceIds.size(); ++r) {
            const bool evening = inSubSeries[r];
            const DateTime firstStart = raceDates[r] + std::chrono::hours(evening ? 18 : 11) +
                                        std::chrono::minutes(evening ? 30 : 0);
            const double courseSeconds = 4500 + dice.Below(2400);
            std::vector<DateTime> starts;
            for (std::size_t c = 0; c < classIds.size(); ++c) {
                const DateTime start = firstStart + std::chrono::minutes(5 * static_cast<int>(c));
                starts.push_back(start);
                addStart.bind(":race", raceIds[r]);
                addStart.bind(":class", classIds[c]);
                addStart.bind(":time", Stored(start));
                if (r == 0 && c == 0)
                    addStart.bind(":note", "Course 3: Start, Bell, Castle, Finish");
                else
                    addStart.bind(":note");
                if (r == 0)
                    addStart.bind(":footnote", "Protests to the race office by 17:00");
                else
                    addStart.bind(":footnote");
                addStart.exec();
                addStart.reset();
            }
            for (std::size_t b = 0; b < boats.size(); ++b) {
                const Boat& boat = boats[b];
                if (!boat.races[r])
                    continue;
                // The sister ships of the first fleet cross the line together in the first race.
                const bool tiedPair =
                    r == 0 && (b == 0 || b == static_cast<std::size_t>(size.classes));
                const int roll = dice.Below(100);
                if (roll < 5 && !tiedPair)
                    continue;  // did not come: the computation records it
                int status = ResultStatus::kFinished;
                if (roll < 9 && !tiedPair)
                    status = ResultStatus::kDidNotFinish;
                else if (roll < 11 && !tiedPair)
                    status = ResultStatus::kDidNotStart;
                addResult.bind(":race", raceIds[r]);
                addResult.bind(":entrant", boat.entrant);
                if (status == ResultStatus::kFinished) {
                    const double corrected =
                        tiedPair ? courseSeconds
                                 : courseSeconds * (1 + boat.skill + dice.Normal() * 0.015);
                    const long long elapsed = std::llround(corrected / boat.tcf);
                    addResult.bind(":finish",
                                   Stored(starts[boat.classIndex] + std::chrono::seconds(elapsed)));
                } else {
                    addResult.bind(":finish");
                }
                addResult.bind(":status", status);
                const int penalty = status == ResultStatus::kFinished ? dice.Below(100) : 100;
                addResult.bind(":mins", penalty < 1 ? 5.0 : 0.0);
                addResult.bind(":percent", penalty >= 1 && penalty < 2 ? 20.0 : 0.0);
                addResult.bind(":points", penalty >= 2 && penalty < 3 ? 2.0 : 0.0);
                if (penalty < 1)
                    addResult.bind(":notes", "Late declaration");
                else if (penalty < 2)
                    addResult.bind(":notes", "Scoring penalty, rule 44.3");
                else if (penalty < 3)
                    addResult.bind(":notes", "Discretionary penalty");
                else
                    addResult.bind(":notes");
                addResult.exec();
                addResult.reset();
            }
        }
        // The main window opens on the season's last race.
        SQLite::Statement remember(
            db, "INSERT OR REPLACE INTO Settings (Parameter, Value) VALUES (:parameter, :value)");
        const std::pair<const char*, std::string> context[] = {
            {"LastSeriesYr", std::to_string(kYear)},
            {"LastSeries", "1"},
            {"LastSchedule", raceIds.empty() ? std::string() : std::to_string(raceIds.back())}};
        for (const auto& [parameter, value] : context) {
            remember.bind(":parameter", parameter);
            remember.bind(":value", value);
            remember.exec();
            remember.reset();
        }
        transaction.commit();
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "CreateDemoSeason", &pending);
    }
    // Each race's times are worked out as the race officer's report that evening would have
    // done, so that a later race's series standings count every earlier race.
    const std::string previousDataFile = DataFile;
    DataFile = path;
    {
        clResults results;
        RowSet problems;
        RowSet races;
        Msg = results.GetSchedule(races, 1);
        for (std::size_t r = 0; Msg.empty() && !races.IsEmpty() && r < races.Rows(); ++r)
            Msg = results.ComputeResultTimes(
                static_cast<int>(races(clResults::ScheduleCol::Id, r).AsInt()), problems);
    }
    DataFile = previousDataFile;
    return Msg;
}

}  // namespace

std::string CreateDemoSeason(const std::string& path, const DemoSize& size) {
    if (!IsServerAddress(path))
        return CreateDemoFile(path, size);
    // A server's season is made in a file and copied across whole.
    std::string folder = (std::filesystem::temp_directory_path() / "tallyboard-demo-XXXXXX");
    if (::mkdtemp(folder.data()) == nullptr)
        return "E-Cannot make a temporary folder for the demonstration season";
    const std::string file = folder + "/season.db";
    std::string Msg = CreateDemoFile(file, size);
    if (Msg.empty()) {
        const std::string previousDataFile = DataFile;
        DataFile = file;
        Msg = clResults().CopyDatabase(path);
        DataFile = previousDataFile;
    }
    std::error_code ec;
    std::filesystem::remove_all(folder, ec);
    return Msg;
}

}  // namespace tb::cli
