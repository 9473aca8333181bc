#include "data/Transaction.h"

#include "data/Connection.h"
#include "data/Schema.h"

namespace tb {

Transaction::Transaction(Connection& connection, bool writer) : connection_(connection) {
    if (!connection_.InTransaction()) {
        connection_.Begin(writer);
        owner_ = true;
    } else {
        connection_.Exec("SAVEPOINT operation");
    }
}

Transaction::~Transaction() {
    if (done_)
        return;
    // Undoing never throws past here: a connection already lost has nothing to undo.
    try {
        if (owner_) {
            connection_.Exec("ROLLBACK");
            // A server's AutoNumber does not take back the Ids an undone insert drew; SQLite's
            // does, and the next record must get the same Id on both.
            ResetIdentities(connection_);
        } else {
            connection_.Exec("ROLLBACK TO operation");
            connection_.Exec("RELEASE operation");
        }
    } catch (...) {
    }
}

void Transaction::Commit() {
    if (!done_)
        connection_.Exec(owner_ ? "COMMIT" : "RELEASE operation");
    done_ = true;
}

}  // namespace tb
