#include "reports/ReportFixture.h"

#include <filesystem>
#include <regex>

#include "app/Globals.h"

namespace tb::test {

ReportFixture::ReportFixture() : savedReportPath_(ReportPath) {
    std::filesystem::create_directories(reports());
    ReportPath = reports();
    db.Exec("UPDATE Settings SET Value = 'Riverside & District \"SC\"' WHERE Parameter = 'Header'");
    // One discard as soon as two races have been run.
    db.Exec("UPDATE Discards SET RacesRun = 2 WHERE RacesRun = 4");

    class1 = season.AddClass("Class 1");
    multihull = season.AddClass("Multihull");
    fleet = season.AddClass("Fleet");
    fish = season.AddEntrant("Fish & Chips", class1, 0, 1.0);
    gull = season.AddEntrant("Gull", class1, 3, 1.05);
    tern = season.AddEntrant("Tern", class1, 0, 0.95);
    catOne = season.AddEntrant("Cat <One>", multihull, 1, 1.2);
    catTwo = season.AddEntrant("Cat Two", multihull, 0, 1.0);
    lonely = season.AddEntrant("Lonely", fleet, 0, 1.0);
    db.Exec("UPDATE Entrant SET NameOnResults = 'Jo \"Skip\" O''Hara' WHERE Id = " +
            std::to_string(gull));

    race1 = season.AddRace("Race 1", "2024-06-15");
    race2 = season.AddRace("Race 2", "2024-06-22", true);
    db.Exec("UPDATE Schedule SET Reference = 'R' || Id");
    for (int race : {race1, race2}) {
        season.EnterAll(race);
        season.Start(race, class1);
        season.Start(race, multihull);
        season.Start(race, fleet, race == race1);
    }
    db.Exec(
        "UPDATE Start SET TopNote = 'Course 2', Footnote = 'See <b>notice</b>' "
        "WHERE Class = " +
        std::to_string(class1) + " AND Schedule = " + std::to_string(race2));

    season.Finish(race1, fish, 3600);
    season.Finish(race1, gull, 3500);
    season.Finish(race1, tern, 3700);
    season.Finish(race1, catOne, 3000);
    season.Finish(race1, catTwo, 3100);
    season.Finish(race1, lonely, 3000);
    season.Finish(race2, fish, 3600);
    season.Finish(race2, gull, 3400);
    season.Status(race2, tern, 4);
    db.Exec("UPDATE Results SET PenaltyMins = 5, Notes = 'Hit mark' WHERE Entrant = " +
            std::to_string(tern) + " AND Schedule = " + std::to_string(race2));
    season.Finish(race2, catOne, 3000);
    season.Finish(race2, catTwo, 3700);
    // Race 1's report was made on its evening, which worked out its times.
    RowSet problems;
    EXPECT_EQ(results.ComputeResultTimes(race1, problems), "");
}

ReportFixture::~ReportFixture() {
    ReportPath = savedReportPath_;
}

void ReportFixture::UseMenu(const std::string& actions) {
    const std::string path = folder.path() + "/menu.ini";
    WriteFile(path, EveryKindMenu(actions));
    ASSERT_EQ(results.ReadReportMenu(path), "");
}

std::string ReportFixture::Make(char letter, std::string& path, int action, int viewer) {
    const int kind = static_cast<int>(std::string(kReportLetters).find(letter));
    return results.CreateReport(kind, action, viewer, race2, path);
}

std::string EveryKindMenu(const std::string& actions) {
    std::string ini;
    for (const char kind : std::string(kReportLetters))
        ini += std::string("[") + kind + "]\n" + actions + "\n";
    return ini;
}

std::string WithoutReportTime(std::string xml) {
    static const std::regex stamp(
        R"re( ReportDate="\d\d [A-Z][a-z]{2} \d{4}" ReportTime="\d\d:\d\d")re");
    return std::regex_replace(xml, stamp, " ReportDate=\"\" ReportTime=\"\"");
}

}  // namespace tb::test
