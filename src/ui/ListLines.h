#pragma once

#include <QString>
#include <string>

#include "data/Value.h"

class QLabel;
class QListWidget;

namespace tb {

// The padded one-line rows of the series and entry editors' lists, shown in a fixed-pitch font so
// that their columns line up, and the column headings above them.

// "dd/mm/yy", then "*  " for a sub-series race or three blanks, then the race name.
QString ScheduleLine(const Value& raceDate, bool inSubSeries, const std::string& raceName);
QString RaceColumnsHeader();

// Class name padded to 32, handicap type padded to 16, then the minimum TCF "0.000" (nothing when
// there is none).
QString ClassSplitLine(const std::string& className, const std::string& handicapType,
                       const Value& minTcf);
QString ClassColumnsHeader();

// Boat name and a blank padded to 34, then the full sail number.
QString BoatLine(const std::string& boatName, const std::string& fullSailNo);

// "*" for a sub-series race or a blank, "dd/mm/yy", a blank, the race name cut to 28 and padded
// to 29, then the boat's handicap for the race ("0.000", or the no-handicap marker as given).
QString EntryRaceLine(const Value& raceDate, bool inSubSeries, const std::string& raceName,
                      const QString& handicaps);
QString EntryRaceColumnsHeader();
QString HandicapText(const Value& tcf);

// Indents a column heading so that its text starts where the list's line texts start (after the
// frame, the item margin and, for a check list, the tick box).
void AlignHeading(QLabel* heading, const QListWidget* list, bool checkable);

}  // namespace tb
