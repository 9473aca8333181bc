#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kModelNamed = "SELECT Id FROM BoatType WHERE Model=?1 ORDER BY Id";
constexpr const char* kTypeNamed = "SELECT Id FROM HandicapType WHERE Description=?1 ORDER BY Id";
constexpr const char* kAddType = "INSERT INTO HandicapType (Description) VALUES (?1)";
constexpr const char* kBoatsWithSailNo = "SELECT Id FROM Boat WHERE SailNo=?1";
// Every look-up gives the Id alone.
constexpr std::size_t kIdColumn = 0;

bool AllDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

std::string clResults::FindOrAddPerson(const std::string& Firstname, const std::string& Lastname,
                                       int& Id, bool& Added) {
    RowSet found;
    std::string Msg = FindName(Firstname, Lastname, found);
    Added = false;
    if (!Msg.empty())
        return Msg;
    Id = static_cast<int>(found(kIdColumn, 0).AsInt());
    if (Id != 0)
        return {};
    Msg = PutPersonalDetails(Id, "", Firstname, Lastname, "", "", "", "", "", "", "", "", "", false,
                             "");
    Added = Msg.empty();
    return Msg;
}

std::string clResults::FindOrAddModel(const std::string& Model, int& Id, bool& Added) {
    Added = false;
    RowSet found;
    std::string Msg = Run("FindOrAddModel", Shape::Query, [&] {
        found = Query(kModelNamed, {Model});
        return std::string();
    });
    if (!Msg.empty())
        return Msg;
    if (!found.IsEmpty()) {
        Id = static_cast<int>(found(kIdColumn, 0).AsInt());
        return {};
    }
    int id = -1;
    Msg = PutModelDetails(id, Model, 0, 0);
    if (Msg.empty())
        Id = id, Added = true;
    return Msg;
}

std::string clResults::FindOrAddHandicapType(const std::string& Description, int& Id, bool& Added) {
    Added = false;
    return Run("FindOrAddHandicapType", Shape::Store, [&] {
        const RowSet found = Query(kTypeNamed, {Description});
        if (!found.IsEmpty()) {
            Id = static_cast<int>(found(kIdColumn, 0).AsInt());
            return std::string();
        }
        Execute(kAddType, {Description});
        Id = static_cast<int>(LastInsertId());
        Added = true;
        return std::string();
    });
}

std::string clResults::FindBoatBySailNumber(const std::string& SailNo, int& Id) {
    Id = 0;
    RowSet found;
    std::string Msg = FindBoat(SailNo, found);
    if (Msg.empty() && found.IsEmpty() && AllDigits(SailNo) && SailNo.size() < 10) {
        Msg = Run("FindBoatBySailNumber", Shape::Query, [&] {
            found = Query(kBoatsWithSailNo, {std::stoll(SailNo)});
            return std::string();
        });
    }
    if (Msg.empty() && found.Rows() == 1)
        Id = static_cast<int>(found(kIdColumn, 0).AsInt());
    return Msg;
}

}  // namespace tb
