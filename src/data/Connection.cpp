#include "data/Connection.h"

#include <libpq-fe.h>

#include "data/PgConnection.h"
#include "data/SqliteConnection.h"

namespace tb {

bool IsServerAddress(std::string_view dataFile) {
    return dataFile.starts_with("postgresql://") || dataFile.starts_with("postgres://");
}

std::string OnSameServer(const std::string& uri, const std::string& database) {
    const std::size_t authority = uri.find("://") + 3;
    const std::size_t path = uri.find_first_of("/?", authority);
    if (path == std::string::npos)
        return uri + "/" + database;
    const std::size_t settings = uri.find('?', path);
    return uri.substr(0, path) + "/" + database +
           (settings == std::string::npos ? "" : uri.substr(settings));
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
