#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kModels =
    "SELECT BoatType.Id, BoatType.Model, BoatType.Draft FROM BoatType ORDER BY BoatType.Model";
constexpr const char* kModelDetails =
    "SELECT BoatType.Model, BoatType.LOA, BoatType.Draft FROM BoatType WHERE BoatType.Id=?1";
constexpr const char* kBoatsOfModel =
    "SELECT BoatName, FullSailNo FROM Boat WHERE BoatType=?1 ORDER BY BoatName, FullSailNo";
constexpr const char* kAddModel = "INSERT INTO BoatType (Model, LOA, Draft) VALUES (?1, ?2, ?3)";
constexpr const char* kUpdateModel = "UPDATE BoatType SET Model=?1, LOA=?2, Draft=?3 WHERE Id=?4";
constexpr const char* kRemoveModel = "DELETE FROM BoatType WHERE Id=?1";

// The editors' "new record" Id; 0 is an Id like any other and matches no model.
constexpr int kNewModel = -1;

}  // namespace

std::string clResults::GetModels(RowSet& Models) {
    return Run("GetModels", Shape::Query, [&] {
        Models = Query(kModels);
        return std::string();
    });
}

std::string clResults::GetModelDetails(int Id, RowSet& Detail) {
    return Run("GetModelDetails", Shape::Query, [&] {
        RowSet found = Query(kModelDetails, {Id});
        if (found.IsEmpty())
            throw RunTimeFault::NoCurrentRecord();
        Detail = std::move(found);
        return std::string();
    });
}

std::string clResults::GetBoatsOfModel(int ModelId, RowSet& Boats) {
    return Run("GetBoatsOfModel", Shape::Query, [&] {
        Boats = Query(kBoatsOfModel, {ModelId});
        return std::string();
    });
}

std::string clResults::PutModelDetails(int& Id, const std::string& Model, double LOA,
                                       double Draft) {
    int id = Id;
    const std::string Msg = Run("PutModelDetails", Shape::Store, [&] {
        if (id == kNewModel) {
            Execute(kAddModel, {Model, LOA, Draft});
            id = static_cast<int>(LastInsertId());
        } else if (Execute(kUpdateModel, {Model, LOA, Draft, id}) == 0) {
            throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
    if (Msg.empty())
        Id = id;
    return Msg;
}

std::string clResults::RemoveModel(int Id) {
    return Run("RemoveModel", Shape::Remove, [&] {
        Execute(kRemoveModel, {Id});
        return std::string();
    });
}

}  // namespace tb
