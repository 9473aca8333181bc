#include "Seasons.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "app/Globals.h"
#include "cli/DemoSeason.h"
#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSeed = 1;
constexpr int kSeasonYear = 2026;
constexpr int kSeasons = 20;
// Room enough between the copies' record numbers for every table of one season.
constexpr long long kIdsPerSeason = 1000000;

void Check(const std::string& Msg, const std::string& what) {
    if (!Msg.empty())
        throw std::runtime_error(what + ": " + Msg);
}

Season MakeSeason(const std::string& name, const std::string& file, int boats, int races,
                  int classes = 4) {
    Season season{name, RunFolder() + "/" + file, 0};
    Check(cli::CreateDemoSeason(season.path, {boats, races, classes, kSeed}), "making " + name);
    season.lastRace = LastRaceOf(season.path);
    return season;
}

// A date-time text moved to another year: the stored form starts with the four-digit year.
constexpr const char* kMovedDate = "CASE WHEN {} IS NULL THEN NULL ELSE ?2 || substr({}, 5) END";

std::string Moved(const std::string& column) {
    std::string text = kMovedDate;
    for (std::size_t at = text.find("{}"); at != std::string::npos; at = text.find("{}"))
        text.replace(at, 2, column);
    return text;
}

// Copies the season in src into main as the season of another year: ?1 is added to every
// record number of the season's own tables, ?2 is the year, ?3 the season's own year. Boats,
// people and handicaps are the club's, shared by every season.
std::vector<std::string> SeasonCopy() {
    return {
        "INSERT INTO Series (Id, Title, SubseriesTitle, Scoring, Discards) "
        "SELECT Id + ?1, replace(Title, ?3, ?2), SubseriesTitle, Scoring, Discards "
        "FROM src.Series",
        "INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries, Reference) "
        "SELECT Id + ?1, Series + ?1, RaceName, " +
            Moved("RaceDate") + ", InSubSeries, Reference FROM src.Schedule",
        "INSERT INTO Class (Id, Series, ClassName, HandicapType, MinTCF) "
        "SELECT Id + ?1, Series + ?1, ClassName, HandicapType, MinTCF FROM src.Class",
        "INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant, EntryDate, "
        "NameOnResults, SeriesPoints) "
        "SELECT Id + ?1, Series + ?1, Boat, Class + ?1, EntrantType, Entrant, " +
            Moved("EntryDate") + ", NameOnResults, SeriesPoints FROM src.Entrant",
        "INSERT INTO EntryList (Entrant, Schedule) SELECT Entrant + ?1, Schedule + ?1 "
        "FROM src.EntryList",
        "INSERT INTO Start (Id, Schedule, Class, StartTime, TopNote, Footnote) "
        "SELECT Id + ?1, Schedule + ?1, Class + ?1, " +
            Moved("StartTime") + ", TopNote, Footnote FROM src.Start",
        "INSERT INTO Results (Id, Schedule, Entrant, FinishTime, Status, PenaltyMins, "
        "PenaltyPercent, PenaltyPoints, Notes, Handicap, ElapsedTime, CorrectedTime, Points) "
        "SELECT Id + ?1, Schedule + ?1, Entrant + ?1, " +
            Moved("FinishTime") +
            ", Status, PenaltyMins, PenaltyPercent, PenaltyPoints, Notes, Handicap, ElapsedTime, "
            "CorrectedTime, Points FROM src.Results",
    };
}

Season MakeTwentySeasons() {
    const Season& newest = NormalSeason();
    Season twenty{"twenty seasons", RunFolder() + "/twenty-seasons.db", newest.lastRace};
    {
        SQLite::Database db(newest.path, SQLite::OPEN_READWRITE);
        SQLite::Statement copy(db, "VACUUM INTO ?");
        copy.bind(1, twenty.path);
        copy.exec();
    }
    {
        SQLite::Database db(twenty.path, SQLite::OPEN_READWRITE);
        SQLite::Statement attach(db, "ATTACH DATABASE ? AS src");
        attach.bind(1, newest.path);
        attach.exec();
        SQLite::Transaction transaction(db);
        const auto statements = SeasonCopy();
        for (int k = 1; k < kSeasons; ++k) {
            for (const std::string& sql : statements) {
                SQLite::Statement st(db, sql);
                st.bind(1, static_cast<int64_t>(k * kIdsPerSeason));
                if (st.getBindParameterCount() >= 2)
                    st.bind(2, std::to_string(kSeasonYear - k));
                if (st.getBindParameterCount() >= 3)
                    st.bind(3, std::to_string(kSeasonYear));
                st.exec();
            }
        }
        transaction.commit();
    }
    // The main window opens on what the user last worked on: the newest season's last race.
    const std::string previous = DataFile;
    DataFile = twenty.path;
    {
        clResults db;
        Check(db.PutSetting("LastSeriesYr", std::to_string(kSeasonYear)), "the year setting");
        Check(db.PutSetting("LastSeries", "1"), "the series setting");
        Check(db.PutSetting("LastSchedule", std::to_string(twenty.lastRace)), "the race setting");
        const DateTime now = Now();
        Check(db.PutSetting("LastModified",
                            FormatDate(now, "dd mmm yyyy") + " " + FormatDate(now, "hh:mm")),
              "the modification stamp");
    }
    DataFile = previous;
    return twenty;
}

}  // namespace

int LastRaceOf(const std::string& path) {
    const std::string previous = DataFile;
    DataFile = path;
    int race = 0;
    {
        clResults db;
        RowSet races;
        Check(db.GetSchedule(races, 1), "the races of " + path);
        race = static_cast<int>(races(0, races.Rows() - 1).AsInt());
    }
    DataFile = previous;
    return race;
}

const std::string& RunFolder() {
    static const std::string folder = [] {
        std::string pattern = (fs::temp_directory_path() / "tallyboard-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make a folder in " +
                                     fs::temp_directory_path().string());
        // The shipped style sheets, copied so that the reports are written beside them here.
        fs::create_directory(pattern + "/Reports");
        for (const auto& entry : fs::directory_iterator(ProgramFolder() + "/Reports")) {
            if (entry.path().extension() == ".xsl")
                fs::copy_file(entry.path(),
                              pattern + "/Reports/" + entry.path().filename().string());
        }
        return pattern;
    }();
    return folder;
}

void RemoveRunFolder() {
    std::error_code ec;
    fs::remove_all(RunFolder(), ec);
}

const Season& NormalSeason() {
    static const Season season = MakeSeason("season", "season.db", 200, 60);
    return season;
}

const Season& DoubleSeason() {
    static const Season season = MakeSeason("double season", "double-season.db", 400, 60);
    return season;
}

const Season& LongSeason() {
    static const Season season = MakeSeason("long season", "long-season.db", 200, 120);
    return season;
}

const Season& ClubSeason() {
    static const Season season = MakeSeason("club season", "club-season.db", 1000, 60, 20);
    return season;
}

const Season& TwentySeasons() {
    static const Season season = MakeTwentySeasons();
    return season;
}

}  // namespace tb::bench
