#include "data/Connection.h"

#include "data/PgConnection.h"
#include "data/SqliteConnection.h"

namespace tb {

bool IsServerAddress(std::string_view dataFile) {
    return dataFile.starts_with("postgresql://") || dataFile.starts_with("postgres://");
}

std::unique_ptr<Connection> OpenConnection(const std::string& dataFile) {
    if (IsServerAddress(dataFile))
        return std::make_unique<PgConnection>(dataFile);
    return std::make_unique<SqliteConnection>(dataFile, false);
}

std::unique_ptr<Connection> OpenOrCreateConnection(const std::string& dataFile) {
    if (IsServerAddress(dataFile))
        return std::make_unique<PgConnection>(dataFile);
    return std::make_unique<SqliteConnection>(dataFile, true);
}

}  // namespace tb
