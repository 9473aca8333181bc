#include "support/RaceDay.h"

#include "support/WindowTesting.h"

namespace tb::test {

RaceDay::RaceDay() {
    db.Exec(DataText("race-day.sql"));
}

int RaceDay::AddBoat(const std::string& name, const std::string& fullSailNo, int sailNo,
                     int classId, double tcf) {
    const int id = ++boats_;
    const std::string n = std::to_string(id);
    db.Exec("INSERT INTO People (Id, Firstname, Lastname) VALUES (" + n + ", 'Helm', 'No " + n +
            "')");
    SQLite::Statement boat(db.raw(),
                           "INSERT INTO Boat (Id, BoatName, FullSailNo, SailNo, BoatType, Owner) "
                           "VALUES (?,?,?,?,1,?)");
    boat.bind(1, id);
    boat.bind(2, name);
    boat.bind(3, fullSailNo);
    boat.bind(4, sailNo);
    boat.bind(5, id);
    boat.exec();
    db.Exec("INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) VALUES (" + n +
            ", 1, " + std::to_string(tcf) + ", '2000-01-01 00:00:00')");
    db.Exec("INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant) VALUES (" + n +
            ", 1, " + n + ", " + std::to_string(classId) + ", 0, " + n + ")");
    db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (" + n + ", 10)");
    return id;
}

void RaceDay::Start(int classId, const std::string& hhmm) {
    const std::string time = "'2005-06-12 " + hhmm.substr(0, 2) + ":" + hhmm.substr(2, 2) + ":00'";
    const std::string cls = std::to_string(classId);
    if (db.Count("Start", "Schedule=10 AND Class=" + cls) == 0) {
        db.Exec("INSERT INTO Start (Schedule, Class, StartTime) VALUES (10, " + cls + ", " + time +
                ")");
    } else {
        db.Exec("UPDATE Start SET StartTime=" + time + " WHERE Schedule=10 AND Class=" + cls);
    }
}

}  // namespace tb::test
