#include "data/clResults.h"

namespace tb {

namespace {

// "SELECT HandicapType.Id, HandicapType.Description From HandicapType WHERE
//  HandicapType.Description='<name>'" (Description compares without regard to case)
constexpr const char* kHandicapTypeNamed =
    "SELECT HandicapType.Id FROM HandicapType WHERE HandicapType.Description=?1";
// "SELECT HandicapType.Id, HandicapType.Description From HandicapType WHERE HandicapType.Id=<Id>"
constexpr const char* kRenameHandicapType =
    "UPDATE HandicapType SET Description=?1 WHERE HandicapType.Id=?2";
constexpr const char* kAddHandicapType = "INSERT INTO HandicapType (Description) VALUES (?1)";

}  // namespace

std::string clResults::PutOptions(const std::string& Heading, const std::string& Comment,
                                  const std::string& Footnote, int& HandicapTypeId,
                                  const std::string& Description) {
    int id = HandicapTypeId;
    const std::string Msg = Run("PutOptions", Shape::Store, [&] {
        std::string result = PutSetting("Header", Heading);
        if (result.empty())
            result = PutSetting("Comment", Comment);
        if (result.empty())
            result = PutSetting("Footnote", Footnote);
        if (!result.empty())
            return result;

        const RowSet named = Query(kHandicapTypeNamed, {Description});
        if (!named.IsEmpty()) {
            const int namedId = static_cast<int>(named(kOnlyColumn, kFirstRow).AsInt());
            if (namedId != id)
                return "E-Another handicap system named '" + Description + "' already exists";
        }
        if (Execute(kRenameHandicapType, {Description, id}) == 0) {
            Execute(kAddHandicapType, {Description});
            id = static_cast<int>(LastInsertId());
        }
        return std::string();
    });
    if (Msg.empty())
        HandicapTypeId = id;
    return Msg;
}

}  // namespace tb
