#include <optional>

#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kSeriesEntrants = R"sql(
SELECT Entrant.Id, Boat.BoatName, Boat.FullSailNo, Class.ClassName, Class.HandicapType,
       Entrant.EntryDate, Entrant.Boat, Entrant.Class
FROM Entrant JOIN Boat ON Boat.Id = Entrant.Boat JOIN Class ON Class.Id = Entrant.Class
WHERE Entrant.Series = ?1
ORDER BY Boat.BoatName, Boat.FullSailNo)sql";
constexpr std::size_t kEntrantId = 0, kEntrantBoatName = 1, kEntrantSailNo = 2,
                      kEntrantClassName = 3, kEntrantType = 4, kEntrantDate = 5, kEntrantBoat = 6,
                      kEntrantClass = 7;

constexpr const char* kSeriesClasses =
    "SELECT Id, ClassName, HandicapType, MinTCF FROM Class WHERE Series = ?1 ORDER BY ClassName";
constexpr std::size_t kClassId = 0, kClassName = 1, kClassType = 2, kClassMinTcf = 3;

// The boat's handicap of the type in force on the day; the newest when periods overlap.
constexpr const char* kTcfOnDay = R"sql(
SELECT Handicap FROM Handicap
WHERE Boat = ?1 AND HandicapType = ?2 AND (EffectiveFrom <= ?3 OR EffectiveFrom IS NULL)
  AND (Expires >= ?3 OR Expires IS NULL)
ORDER BY EffectiveFrom DESC LIMIT 1)sql";

constexpr const char* kMoveEntrant = "UPDATE Entrant SET Class = ?1 WHERE Id = ?2 AND Series = ?3";
constexpr std::size_t kMoveEntrantId = 0, kMoveNewClass = 5;

// The class of the type whose minimum is the highest not above the TCF; a class without a
// minimum takes the boats no other class takes.
std::optional<std::size_t> ClassForTcf(const RowSet& classes, const Value& type, double tcf) {
    std::optional<std::size_t> best, open;
    for (std::size_t c = 0; c < classes.Rows(); ++c) {
        if (classes(kClassType, c) != type)
            continue;
        const Value& min = classes(kClassMinTcf, c);
        if (min.IsNull()) {
            open = open ? open : c;
        } else if (min.AsDouble() <= tcf &&
                   (!best || min.AsDouble() > classes(kClassMinTcf, *best).AsDouble())) {
            best = c;
        }
    }
    return best ? best : open;
}

}  // namespace

std::string clResults::GetClassSplitMoves(int SeriesId, RowSet& Moves, RowSet& Unrated) {
    Moves.Clear();
    Unrated.Clear();
    return Run("GetClassSplitMoves", Shape::Query, [&] {
        const RowSet entrants = Query(kSeriesEntrants, {SeriesId});
        const RowSet classes = Query(kSeriesClasses, {SeriesId});
        for (std::size_t e = 0; e < entrants.Rows(); ++e) {
            const Value& entered = entrants(kEntrantDate, e);
            const DateTime day = entered.IsNull() ? Today() : DatePart(entered.AsDate());
            const RowSet tcf =
                Query(kTcfOnDay, {entrants(kEntrantBoat, e), entrants(kEntrantType, e), day});
            if (tcf.IsEmpty()) {
                Unrated.AddRow({entrants(kEntrantBoatName, e), entrants(kEntrantSailNo, e)});
                continue;
            }
            const auto chosen =
                ClassForTcf(classes, entrants(kEntrantType, e), tcf(0, 0).AsDouble());
            if (!chosen || classes(kClassId, *chosen) == entrants(kEntrantClass, e))
                continue;
            Moves.AddRow({entrants(kEntrantId, e), entrants(kEntrantBoatName, e),
                          entrants(kEntrantSailNo, e), entrants(kEntrantClassName, e),
                          classes(kClassName, *chosen), classes(kClassId, *chosen)});
        }
        return std::string();
    });
}

std::string clResults::PutClassSplit(int SeriesId, const RowSet& Moves) {
    return Run("PutClassSplit", Shape::Store, [&] {
        for (std::size_t m = 0; m < Moves.Rows(); ++m)
            Execute(kMoveEntrant, {Moves(kMoveNewClass, m), Moves(kMoveEntrantId, m), SeriesId});
        return std::string();
    });
}

}  // namespace tb
