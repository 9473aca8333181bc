#include "data/Transaction.h"

#include <gtest/gtest.h>

#include "data/Connection.h"

#include "support/TestDatabase.h"

namespace tb {
namespace {

// What an operation called inside another's transaction leaves behind once the caller is done.
struct NestedCase {
    const char* name;
    bool innerCommits;
    bool outerCommits;
    long long outerRows;  // the caller's own setting, as stored afterwards
    long long innerRows;  // the inner operation's setting
};

TEST(Transaction, InnerWorkIsAllOrNothingWithinTheCaller) {
    const NestedCase cases[] = {{"both commit", true, true, 1, 1},
                                {"inner fails", false, true, 1, 0},
                                {"caller fails", true, false, 0, 0},
                                {"both fail", false, false, 0, 0}};
    for (const NestedCase& c : cases) {
        SCOPED_TRACE(c.name);
        test::TestDatabase db;
        auto connection = OpenConnection(db.path());
        {
            Transaction outer(*connection);
            connection->Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Outer', '1')");
            {
                Transaction inner(*connection);
                connection->Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Inner', '1')");
                if (c.innerCommits)
                    inner.Commit();
            }
            // The caller goes on writing after the inner operation, whatever became of it.
            connection->Exec("UPDATE Settings SET Value = '2' WHERE Parameter = 'Outer'");
            if (c.outerCommits)
                outer.Commit();
        }
        EXPECT_EQ(db.Count("Settings", "Parameter = 'Outer' AND Value = '2'"), c.outerRows);
        EXPECT_EQ(db.Count("Settings", "Parameter = 'Inner'"), c.innerRows);
        // Nothing is left open: a new transaction can start.
        EXPECT_NO_THROW(Transaction(*connection).Commit());
    }
}

}  // namespace
}  // namespace tb
