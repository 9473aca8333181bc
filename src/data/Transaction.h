#pragma once

struct sqlite3;

namespace tb {

// One transaction for one operation: BEGIN IMMEDIATE unless the connection is already inside
// one; an operation called inside another's transaction gets a savepoint of its own, so it is
// still all or nothing while the caller commits the whole once. Rolls back unless committed, so
// a run-time error leaves the database as it was.
class Transaction {
public:
    explicit Transaction(sqlite3* db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    sqlite3* db_;
    bool owner_ = false;
    bool done_ = false;
};

}  // namespace tb
