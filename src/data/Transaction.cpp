#include "data/Transaction.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace tb {

namespace {
void Exec(sqlite3* db, const char* sql) {
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK)
        throw SQLite::Exception(db, rc);
}
}  // namespace

Transaction::Transaction(sqlite3* db) : db_(db) {
    if (sqlite3_get_autocommit(db_) != 0) {
        Exec(db_, "BEGIN IMMEDIATE");
        owner_ = true;
    } else {
        Exec(db_, "SAVEPOINT operation");
    }
}

Transaction::~Transaction() {
    if (done_)
        return;
    if (owner_) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    } else {
        sqlite3_exec(db_, "ROLLBACK TO operation", nullptr, nullptr, nullptr);
        sqlite3_exec(db_, "RELEASE operation", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit() {
    if (!done_)
        Exec(db_, owner_ ? "COMMIT" : "RELEASE operation");
    done_ = true;
}

}  // namespace tb
