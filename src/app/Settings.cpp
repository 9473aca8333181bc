#include "data/Conversions.h"
#include "data/clResults.h"

namespace tb {

std::string clResults::GetSetting(const std::string& Parameter, std::string& Value) {
    return Run("GetSetting", Shape::Query, [&] {
        const RowSet rows = Query("SELECT Value FROM Settings WHERE Parameter=?", {Parameter});
        if (!rows.IsEmpty())
            Value = rows(kOnlyColumn, kFirstRow).ToText();
        return std::string();
    });
}

std::string clResults::PutSetting(const std::string& Parameter, const std::string& Value) {
    return Run("PutSetting", Shape::Write, [&] {
        const tb::Value stored = Value.empty() ? tb::Value() : tb::Value(Value);
        if (Execute("UPDATE Settings SET Value=? WHERE Parameter=?", {stored, Parameter}) == 0) {
            Execute("INSERT INTO Settings (Parameter, Value) VALUES (?, ?)", {Parameter, stored});
        }
        return std::string();
    });
}

std::string clResults::StampModified() {
    const DateTime now = Now();
    return PutSetting("LastModified",
                      FormatDate(now, "dd mmm yyyy") + " " + FormatDate(now, "hh:mm"));
}

}  // namespace tb
