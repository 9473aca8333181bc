#include "data/Transaction.h"

#include <gtest/gtest.h>

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

class NestedTransaction : public testing::TestWithParam<NestedCase> {};

TEST_P(NestedTransaction, InnerWorkIsAllOrNothingWithinTheCaller) {
    const NestedCase& c = GetParam();
    test::TestDatabase db;
    sqlite3* handle = db.raw().getHandle();
    {
        Transaction outer(handle);
        db.Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Outer', '1')");
        {
            Transaction inner(handle);
            db.Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Inner', '1')");
            if (c.innerCommits)
                inner.Commit();
        }
        // The caller goes on writing after the inner operation, whatever became of it.
        db.Exec("UPDATE Settings SET Value = '2' WHERE Parameter = 'Outer'");
        if (c.outerCommits)
            outer.Commit();
    }
    EXPECT_EQ(db.Count("Settings", "Parameter = 'Outer' AND Value = '2'"), c.outerRows) << c.name;
    EXPECT_EQ(db.Count("Settings", "Parameter = 'Inner'"), c.innerRows) << c.name;
    // Nothing is left open: a new transaction can start.
    EXPECT_NO_THROW(Transaction(handle).Commit()) << c.name;
}

INSTANTIATE_TEST_SUITE_P(Transactions, NestedTransaction,
                         testing::Values(NestedCase{"both commit", true, true, 1, 1},
                                         NestedCase{"inner fails", false, true, 1, 0},
                                         NestedCase{"caller fails", true, false, 0, 0},
                                         NestedCase{"both fail", false, false, 0, 0}),
                         [](const testing::TestParamInfo<NestedCase>& info) {
                             std::string name = info.param.name;
                             for (char& ch : name) {
                                 if (ch == ' ')
                                     ch = '_';
                             }
                             return name;
                         });

}  // namespace
}  // namespace tb
