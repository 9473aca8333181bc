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
    }
}

Transaction::~Transaction() {
    if (owner_ && !done_)
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    if (owner_ && !done_)
        Exec(db_, "COMMIT");
    done_ = true;
}

}  // namespace tb
