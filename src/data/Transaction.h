#pragma once

struct sqlite3;

namespace tb {

// One transaction for one operation: BEGIN IMMEDIATE unless the connection is already inside
// one (a computation calling another operation joins the caller's). Rolls back unless committed,
// so a run-time error leaves the database as it was.
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
