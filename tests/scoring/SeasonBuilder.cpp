#include "SeasonBuilder.h"

#include <cstdio>

namespace tb::test {

SeasonBuilder::SeasonBuilder(TestDatabase& db) : db_(db) {
    db_.Exec("INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club')");
    db_.Exec("INSERT INTO BoatType (Id, Model, LOA, Draft) VALUES (1, 'Laser', 4.2, 0.8)");
    db_.Exec(
        "INSERT INTO Series (Id, Title, SubseriesTitle, Scoring, Discards) "
        "VALUES (1, 'Summer', 'Evenings', 1, 1)");
}

int SeasonBuilder::AddClass(const std::string& name, double minTcf) {
    return db_.Insert(
        "INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (1, ?1, 1, " +
            std::to_string(minTcf) + ")",
        {name});
}

int SeasonBuilder::AddEntrant(const std::string& boatName, int classId, int entrantType,
                              double tcf) {
    const std::string n = std::to_string(++people_);
    db_.Exec("INSERT INTO People (Id, Firstname, Lastname) VALUES (" + n + ", 'Helm', 'No" + n +
             "')");
    const std::string boat = std::to_string(db_.Insert(
        "INSERT INTO Boat (BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES (?1, 1, "
        "'GBR " +
            n + "', " + n + ", " + n + ")",
        {boatName}));
    db_.Exec(
        "INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom, Expires) VALUES (" +
        boat + ", 1, " + std::to_string(tcf) + ", '2000-01-01 00:00:00', NULL)");
    return db_.Insert(
        "INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant) VALUES (1, " + boat +
        ", " + std::to_string(classId) + ", " + std::to_string(entrantType) + ", " + n + ")");
}

int SeasonBuilder::AddRace(const std::string& name, const std::string& isoDate, bool inSubSeries) {
    return db_.Insert(
        "INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES (1, ?1, ?2, " +
            std::string(inSubSeries ? "1" : "0") + ")",
        {name, isoDate + " 00:00:00"});
}

void SeasonBuilder::Enter(int entrant, int race) {
    db_.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (" + std::to_string(entrant) + ", " +
             std::to_string(race) + ")");
}

void SeasonBuilder::EnterAll(int race) {
    db_.Exec("INSERT INTO EntryList (Entrant, Schedule) SELECT Id, " + std::to_string(race) +
             " FROM Entrant");
}

std::string SeasonBuilder::RaceTime(int race, int secondsAfterTen) {
    const std::string day =
        db_.Text("SELECT RaceDate FROM Schedule WHERE Id=" + std::to_string(race)).substr(0, 10);
    const int t = 10 * 3600 + secondsAfterTen;
    char time[24];
    std::snprintf(time, sizeof time, " %02d:%02d:%02d", t / 3600, t / 60 % 60, t % 60);
    return day + time;
}

void SeasonBuilder::Start(int race, int classId, bool started) {
    db_.Insert("INSERT INTO Start (Schedule, Class, StartTime) VALUES (" + std::to_string(race) +
                   ", " + std::to_string(classId) + ", " + (started ? "?1" : "NULL") + ")",
               started ? std::vector<std::string>{RaceTime(race, 0)} : std::vector<std::string>{});
}

void SeasonBuilder::Finish(int race, int entrant, int elapsedSeconds, const std::string& extraSet) {
    db_.Insert("INSERT INTO Results (Schedule, Entrant, Status, FinishTime) VALUES (" +
                   std::to_string(race) + ", " + std::to_string(entrant) + ", 9, ?1)",
               {RaceTime(race, elapsedSeconds)});
    if (!extraSet.empty()) {
        db_.Exec("UPDATE Results SET " + extraSet + " WHERE Schedule=" + std::to_string(race) +
                 " AND Entrant=" + std::to_string(entrant));
    }
}

void SeasonBuilder::Status(int race, int entrant, int status) {
    db_.Exec("INSERT INTO Results (Schedule, Entrant, Status) VALUES (" + std::to_string(race) +
             ", " + std::to_string(entrant) + ", " + std::to_string(status) + ")");
}

double SeasonBuilder::Points(int race, int entrant) {
    const std::vector<double> points =
        db_.Numbers("SELECT Points FROM Results WHERE Schedule=? AND Entrant=?",
                    {std::to_string(race), std::to_string(entrant)});
    return points.empty() ? -999 : points.front();
}

}  // namespace tb::test
