#pragma once

namespace tb {

class Connection;

// One transaction for one operation, opened by Connection::Begin unless the connection is
// already inside one; an operation called inside another's transaction gets a savepoint of its
// own, so it is still all or nothing while the caller commits the whole once. Rolls back unless
// committed, so a run-time error leaves the database as it was.
class Transaction {
public:
    // writer: the operation writes (see Connection::Begin).
    explicit Transaction(Connection& connection, bool writer = true);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();
    // Whether this is the outermost transaction (not a savepoint in another's).
    bool owner() const { return owner_; }

private:
    Connection& connection_;
    bool owner_ = false;
    bool done_ = false;
};

}  // namespace tb
