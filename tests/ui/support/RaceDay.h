#pragma once

#include <QDialog>
#include <QString>
#include <functional>
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

// Runs handle on the next modal dialog as soon as it is up (its exec() is running).
void OnNextModal(std::function<void(QDialog&)> handle);

// Saves a picture of the window into $TALLYBOARD_SCREENSHOTS/<name>.png when that is set.
void Screenshot(QWidget& window, const QString& name);

}  // namespace tb::test
