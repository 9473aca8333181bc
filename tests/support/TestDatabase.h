#pragma once

// For the tests that open a database file themselves.
#include <SQLiteCpp/Database.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/Connection.h"

namespace tb::test {

// A fresh database made by createdb, removed afterwards: a file in its own temporary folder, or,
// when TALLYBOARD_TEST_POSTGRES holds the URI of a PostgreSQL server's maintenance database, a
// database of its own on that server, copied from a template made once per build of the tests.
// DataFile points at it for the lifetime of the object. The helpers below use a second
// connection for arranging rows and checking what operations wrote; their SQL runs on both
// engines, with texts bound to ?1, ?2, ... (or ? in order), and reads back the same texts on
// both: real numbers as SQLite writes them (fifteen significant digits, "1.0"), dates as stored.
class TestDatabase {
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    // Whether the databases are made on the server rather than as files.
    static bool OnServer();

    const std::string& folder() const { return folder_; }
    // The data file: a file path, or the URI of this test's database on the server.
    const std::string& path() const { return path_; }

    void Exec(const std::string& sql);
    // Runs an INSERT into a table with an Id and returns the new row's Id.
    int Insert(const std::string& sql, const std::vector<std::string>& texts = {});
    long long Count(const std::string& table, const std::string& where = "");
    // The first column of the first row as text ("" for Null, "<no row>" when nothing is found).
    std::string Text(const std::string& sql);
    // The first column of every row ("" for Null).
    std::vector<std::string> Column(const std::string& sql,
                                    const std::vector<std::string>& texts = {});
    // The first column of every row as exact numbers (0 for Null).
    std::vector<double> Numbers(const std::string& sql, const std::vector<std::string>& texts = {});
    // Every row as its columns joined by the separator, Null as "-".
    std::vector<std::string> Lines(const std::string& sql, const std::string& separator = " | ");
    // Each table's columns in order, as "Name TYPE, Name TYPE, ...", by table name. On the
    // server, names as it folds them, and each type by the name a file gives it.
    std::map<std::string, std::string> Format();
    // The column telling where a row is stored: a row deleted and written again moves.
    const char* RowLocation() const { return OnServer() ? "ctid" : "rowid"; }
    // Whether an operation has stamped the data as changed, and forgetting that it did.
    bool Stamped() { return Count("Settings", "Parameter='LastModified'") == 1; }
    void ForgetStamp() { Exec("DELETE FROM Settings WHERE Parameter='LastModified'"); }

private:
    std::vector<std::vector<Value>> Query(const std::string& sql,
                                          const std::vector<std::string>& texts);

    std::string folder_;
    std::string serverName_;
    std::string path_;
    std::unique_ptr<Connection> db_;
};

// A temporary folder removed with everything in it afterwards.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace tb::test
