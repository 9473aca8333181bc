#include "data/Transaction.h"

#include <gtest/gtest.h>

#include "data/Connection.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

TEST(Transaction, InnerWorkIsAllOrNothingWithinTheCaller) {
    for (const auto& row : test::DataFileRows("data/nested-transactions.tsv")) {
        SCOPED_TRACE(row.at(0));
        test::TestDatabase db;
        auto connection = OpenConnection(db.path());
        {
            Transaction outer(*connection);
            connection->Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Outer', '1')");
            {
                Transaction inner(*connection);
                connection->Exec("INSERT INTO Settings (Parameter, Value) VALUES ('Inner', '1')");
                if (row.at(1) == "commits")
                    inner.Commit();
            }
            // The caller goes on writing after the inner operation, whatever became of it.
            connection->Exec("UPDATE Settings SET Value = '2' WHERE Parameter = 'Outer'");
            if (row.at(2) == "commits")
                outer.Commit();
        }
        EXPECT_EQ(db.Count("Settings", "Parameter = 'Outer' AND Value = '2'"),
                  std::stoi(row.at(3)));
        EXPECT_EQ(db.Count("Settings", "Parameter = 'Inner'"), std::stoi(row.at(4)));
        // Nothing is left open: a new transaction can start.
        EXPECT_NO_THROW(Transaction(*connection).Commit());
    }
}

}  // namespace
}  // namespace tb
