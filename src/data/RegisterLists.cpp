#include "data/clResults.h"

// The register lists the series and entry editors fill their drop-downs from.

namespace tb {

namespace {

// A boat without a model is still listed, with an empty model.
constexpr const char* kBoats = R"sql(
SELECT Boat.Id, Boat.BoatName, BoatType.Model, Boat.FullSailNo, Boat.SailNo
FROM Boat LEFT JOIN BoatType ON BoatType.Id = Boat.BoatType
ORDER BY Boat.BoatName, BoatType.Model, Boat.SailNo)sql";
constexpr const char* kHandicapTypes =
    "SELECT HandicapType.Id, HandicapType.Description FROM HandicapType "
    "ORDER BY HandicapType.Description";
// A missing part of the name joins as an empty text.
constexpr const char* kPeople = R"sql(
SELECT People.Id, ifnull(People.Lastname, '') || ', ' || ifnull(People.Firstname, '') AS Person,
       People.City, People.Postcode
FROM People ORDER BY People.Lastname, People.Firstname)sql";
constexpr const char* kScoring =
    "SELECT Scoring.Id, Scoring.Description FROM Scoring ORDER BY Scoring.Description";
constexpr const char* kDiscards =
    "SELECT DiscardSystem.Id, DiscardSystem.Description FROM DiscardSystem "
    "ORDER BY DiscardSystem.Description";

}  // namespace

std::string clResults::GetBoats(RowSet& Boats) {
    return Run("GetBoats", Shape::Query, [&] {
        Boats = Query(kBoats);
        return std::string();
    });
}

std::string clResults::GetHandicapTypes(RowSet& Types) {
    return Run("GetHandicapTypes", Shape::Query, [&] {
        Types = Query(kHandicapTypes);
        return std::string();
    });
}

std::string clResults::GetPeople(RowSet& People) {
    return Run("GetPeople", Shape::Query, [&] {
        People = Query(kPeople);
        return std::string();
    });
}

std::string clResults::GetScoring(RowSet& Systems) {
    return Run("GetScoring", Shape::Query, [&] {
        Systems = Query(kScoring);
        return std::string();
    });
}

std::string clResults::GetDiscards(RowSet& Systems) {
    return Run("GetDiscards", Shape::Query, [&] {
        Systems = Query(kDiscards);
        return std::string();
    });
}

}  // namespace tb
