#include "ui/UsageLists.h"

#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/RowSet.h"
#include "data/clResults.h"

namespace tb {

std::string RemovalRefused(const std::string& inUse) {
    return "I-Delete is not allowed as " + inUse;
}

void ShowUsage(const std::string& title, const std::string& none, const RowSet& rows,
               const UsageLine& line, const std::string& heading, std::size_t limit) {
    std::string text = rows.Rows() == 0 ? none : heading;
    for (std::size_t row = 0; row < rows.Rows() && row < limit; ++row)
        text += (text.empty() ? "" : "\r\n") + line(rows, row);
    Messages().Show({MessageIcon::Information, title, text});
}

std::string SeriesWithYear(const Value& title, const Value& date) {
    return ToText(title) + " (" + Format(date, "yyyy") + ")";
}

std::string BoatWithSailNo(const RowSet& boats, std::size_t row) {
    return ToText(boats(clResults::BoatNamesCol::BoatName, row)) + " " +
           ToText(boats(clResults::BoatNamesCol::FullSailNo, row));
}

}  // namespace tb
