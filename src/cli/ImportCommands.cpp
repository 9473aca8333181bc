#include <iostream>

#include "app/Globals.h"
#include "cli/Commands.h"
#include "data/clResults.h"
#include "exchange/BlwImport.h"

namespace tb::cli {

int ImportSeries(const std::string& File, const std::string& Data) {
    DataFile = Data;
    clResults db;
    std::string summary;
    const std::string Msg = ImportSeriesFile(db, File, summary);
    if (!Msg.empty())
        return Fail(Msg);
    std::cout << summary;
    return 0;
}

int Import(const std::vector<std::string>& args) {
    if (args.size() != 4 || args[0] != "series" || args[2] != "--data")
        return Usage();
    return ImportSeries(args[1], args[3]);
}

}  // namespace tb::cli
