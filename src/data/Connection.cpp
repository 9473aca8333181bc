#include "data/Connection.h"

#include <libpq-fe.h>

#include "data/PgConnection.h"
#include "data/SqliteConnection.h"

namespace tb {

bool IsServerAddress(std::string_view dataFile) {
    return dataFile.starts_with("postgresql://") || dataFile.starts_with("postgres://");
}

bool HoldsPassword(const std::string& uri) {
    std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(uri.c_str(), nullptr), &PQconninfoFree);
    for (const PQconninfoOption* o = options.get(); o != nullptr && o->keyword != nullptr; ++o) {
        if (std::string_view(o->keyword) == "password" && o->val != nullptr && *o->val != '\0')
            return true;
    }
    return false;
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
