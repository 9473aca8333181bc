#pragma once

#include <string>

namespace tb {

// Makes a new, ready-to-use database: every table, the status codes, one scoring system, one
// discard system and one handicap type. target is a file path (a new SQLite file; an existing
// file is never touched) or a PostgreSQL URI (an empty database on the server; one that holds
// tables is refused). Returns a message (empty on success).
std::string CreateDatabase(const std::string& target);

// After rows were written with Ids of their own (a copy, arranged data), sets each AutoNumber
// to go on after the highest Id of its table. Returns a message (empty on success).
std::string ResetIdentities(const std::string& target);

class Connection;
// The same on an open connection, inside the caller's transaction. Throws on failure.
void ResetIdentities(Connection& db);
// Makes every table and the reference rows in an empty database, inside the caller's
// transaction. Throws on failure.
void MakeSchema(Connection& db);
// The tables of a Tallyboard database, in the order they are made.
extern const char* const kTallyboardTables[18];

}  // namespace tb
