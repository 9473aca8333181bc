#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {
constexpr const char* kBoatDetails =
    "SELECT Boat.BoatName, Boat.BoatType, Boat.FullSailNo, Boat.Owner FROM Boat WHERE Id=?1";
}  // namespace

std::string clResults::GetBoatDetails(int Id, RowSet& Detail) {
    return Run("GetBoatDetails", Shape::Query, [&] {
        RowSet found = Query(kBoatDetails, {Id});
        if (found.IsEmpty())
            throw RunTimeFault::NoCurrentRecord();
        Detail = std::move(found);
        return std::string();
    });
}

}  // namespace tb
