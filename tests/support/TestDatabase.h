#pragma once

#include <SQLiteCpp/Database.h>

#include <memory>
#include <string>
#include <vector>

namespace tb::test {

// A fresh database made by createdb in its own temporary folder, removed afterwards. DataFile
// points at it for the lifetime of the object. raw() is a second connection for arranging rows
// and checking what operations wrote.
class TestDatabase {
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    const std::string& folder() const { return folder_; }
    const std::string& path() const { return path_; }

    SQLite::Database& raw();
    void Exec(const std::string& sql);
    // Runs an INSERT with the texts bound to ?1, ?2, ... and returns the new row's Id.
    int Insert(const std::string& sql, const std::vector<std::string>& texts = {});
    long long Count(const std::string& table, const std::string& where = "");
    // The first column of the first row as text ("" for Null, "<no row>" when nothing is found).
    std::string Text(const std::string& sql);
    // Whether an operation has stamped the data as changed, and forgetting that it did.
    bool Stamped() { return Count("Settings", "Parameter='LastModified'") == 1; }
    void ForgetStamp() { Exec("DELETE FROM Settings WHERE Parameter='LastModified'"); }

private:
    std::string folder_;
    std::string path_;
    std::unique_ptr<SQLite::Database> raw_;
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
