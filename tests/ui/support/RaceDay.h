#pragma once

#include <string>

#include "support/TestDatabase.h"

namespace tb::test {

// A race evening in a fresh database: series "Summer Series" (Id 1) with "Class 1" and
// "Class 2" on one handicap type, race "Race 1" on 12 Jun 2005 (Id 10). Boats are entered in
// the series and the race with a handicap of 1.000 valid all season.
class RaceDay {
public:
    RaceDay();

    int AddBoat(const std::string& name, const std::string& fullSailNo, int sailNo, int classId,
                double tcf = 1.0);
    // Starts the class in race 10 at hh:mm on the race day.
    void Start(int classId, const std::string& hhmm);

    TestDatabase db;
    static constexpr int kSeries = 1;
    static constexpr int kRace = 10;
    static constexpr int kClass1 = 1;
    static constexpr int kClass2 = 2;

private:
    int boats_ = 0;
};

}  // namespace tb::test
