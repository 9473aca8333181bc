#include "ui/RaceHeadings.h"

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/clResults.h"

namespace tb {

void ShowRaceHeadings(clResults& ResultsDb, int SeriesId, int RaceId, QLabel& lSeries,
                      QLabel& lRace) {
    RowSet series;
    std::string Msg = ResultsDb.GetSeriesDetails(SeriesId, series);
    if (Msg.empty() && !series.IsEmpty())
        lSeries.setText(
            QString::fromStdString(series(clResults::SeriesDetailCol::Title, 0).ToText()));
    RowSet race;
    if (Msg.empty())
        Msg = ResultsDb.GetRaceDetails(RaceId, race);
    if (Msg.empty() && !race.IsEmpty()) {
        lRace.setText(QString::fromStdString(
            race(clResults::RaceDetailCol::RaceName, 0).ToText() + " - " +
            Format(race(clResults::RaceDetailCol::RaceDate, 0), "dd/mm/yyyy")));
    }
    ShowMessage(Msg);
}

}  // namespace tb
