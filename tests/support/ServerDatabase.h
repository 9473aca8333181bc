#pragma once

#include <string>
#include <vector>

#include "support/TestDatabase.h"

struct pg_conn;

namespace tb::test {

// The URI of the PostgreSQL server's maintenance database the tests run on, "" for none.
std::string TestServer();

// A database of its own on the test server, copied from a template made once per build of the
// tests (a new database from createdb), without its handicap type as the file databases are,
// and dropped afterwards, whoever is still connected to it.
class ServerDatabase {
public:
    ServerDatabase();
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    const std::string& uri() const { return uri_; }

    void Exec(const std::string& sql);
    int Insert(const std::string& sql, const std::vector<std::string>& texts);
    // Real numbers as SQLite writes them (fifteen significant digits), or exactly.
    std::vector<TextRow> Query(const std::string& sql, const std::vector<std::string>& texts,
                               bool sqliteReals = true);

private:
    void CatchUpIdentities(const std::string& sql);

    std::string name_;
    std::string uri_;
    pg_conn* connection_ = nullptr;
};

}  // namespace tb::test
