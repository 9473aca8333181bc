#include <iostream>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"

namespace tb::cli {

int ImportSeries(const std::string& file, const std::string& data) {
    DataFile = data;
    clResults db;
    std::string summary;
    const std::string Msg = db.ImportSeriesFile(file, summary);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << summary;
    return kDone;
}

}  // namespace tb::cli
