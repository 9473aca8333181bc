#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/Statement.h"

namespace tb {

enum class Engine { SQLite, PostgreSQL };

// A data file text naming a PostgreSQL database ("postgresql://..." or "postgres://...") rather
// than a SQLite file.
bool IsServerAddress(std::string_view dataFile);
// Whether a PostgreSQL URI carries a password, which Tallyboard never keeps: the server's
// clients take it from ~/.pgpass, PGPASSWORD or a service file.
bool HoldsPassword(const std::string& uri);
// The address of another database on the same server as uri, with the same settings.
std::string OnSameServer(const std::string& uri, const std::string& database);

// One open database, of either engine. The same SQL text runs on both; where an engine needs its
// own, the caller picks it by engine().
class Connection {
public:
    virtual ~Connection() = default;

    virtual Engine engine() const = 0;
    virtual std::unique_ptr<Statement> Prepare(std::string_view sql) = 0;
    // Runs statements without parameters, separated by semicolons.
    virtual void Exec(const std::string& sql) = 0;
    // Whether a transaction is open (an operation inside another's takes a savepoint).
    virtual bool InTransaction() const = 0;
    // Opens a transaction in which the operation sees one state of the data throughout. A
    // writer first waits for any other writer to finish (on SQLite by the file's write lock, on
    // a server by a lock every Tallyboard writer takes), so that two officers' operations never
    // undo one another and a report never has to be made again.
    virtual void Begin(bool writer) = 0;
    // The Id the last insert into a table with an AutoNumber Id gave.
    virtual std::int64_t LastInsertId() = 0;
    // Whether the database holds a table of that name (as it is folded on the engine).
    virtual bool HasTable(const std::string& name) = 0;
    // Whether the database holds any table at all (a new database is made only in an empty one).
    virtual bool HasAnyTable() = 0;
    // False once the connection is lost (a server that went away); a new one must be opened.
    virtual bool Usable() const { return true; }
};

// Opens an existing database read-write: a SQLite file (never created here) or a PostgreSQL
// database. Throws the engine's error when it cannot.
std::unique_ptr<Connection> OpenConnection(const std::string& dataFile);
// The same, but a missing SQLite file is made empty.
std::unique_ptr<Connection> OpenOrCreateConnection(const std::string& dataFile);

}  // namespace tb
