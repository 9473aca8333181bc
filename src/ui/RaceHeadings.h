#pragma once

#include <QLabel>

namespace tb {

class clResults;

// The series title and "race name - race date" above the race-day windows; a failed read is
// shown as its message.
void ShowRaceHeadings(clResults& ResultsDb, int SeriesId, int RaceId, QLabel& lSeries,
                      QLabel& lRace);

}  // namespace tb
