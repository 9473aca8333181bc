#pragma once

#include <string>

#include "support/TestDatabase.h"

namespace tb::test {

// Arranges a series with plain SQL, the way a club's database holds one, so that the scoring
// computations can be checked against figures worked out by hand. Every boat has the model
// "Laser" and a helm; the series uses the seeded "Low points" system (places 1-7 score 1-7,
// every other outcome entrants + 1) and discard system (one discard from 4 races run).
class SeasonBuilder {
public:
    explicit SeasonBuilder(TestDatabase& db);

    int AddClass(const std::string& name, double minTcf = 0);
    // A boat entered in the series with a handicap of the class's type valid all season.
    int AddEntrant(const std::string& boatName, int classId, int entrantType = 0, double tcf = 1.0);
    int AddRace(const std::string& name, const std::string& isoDate, bool inSubSeries = false);
    void Enter(int entrant, int race);
    void EnterAll(int race);
    // Starts the class at 10:00:00 on the race day; Null start when started is false.
    void Start(int race, int classId, bool started = true);
    // A finish the given number of seconds after 10:00:00 with status 9.
    void Finish(int race, int entrant, int elapsedSeconds, const std::string& extraSet = "");
    void Status(int race, int entrant, int status);
    void Exec(const std::string& sql) { db_.Exec(sql); }

    double Points(int race, int entrant);

    int seriesId = 1;

private:
    // The race's day at 10:00:00 plus the seconds, as the database holds a time.
    std::string RaceTime(int race, int secondsAfterTen);

    TestDatabase& db_;
    int people_ = 0;
};

}  // namespace tb::test
