#include <gtest/gtest.h>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class PutOptionsTest : public ::testing::Test {
protected:
    std::string Setting(const std::string& name) {
        return db.Text("SELECT Value FROM Settings WHERE Parameter='" + name + "'");
    }
    int AddType(const std::string& description) {
        db.raw().exec("INSERT INTO HandicapType (Description) VALUES ('" + description + "')");
        return static_cast<int>(db.raw().getLastInsertRowid());
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(PutOptionsTest, SavesTheReportTextsAddsANewTypeAndStamps) {
    int id = 0;
    ASSERT_EQ(results.PutOptions("Harbour SC", "Provisional", "Protests by 18:00", id, "IRC"), "");
    EXPECT_EQ(Setting("Header"), "Harbour SC");
    EXPECT_EQ(Setting("Comment"), "Provisional");
    EXPECT_EQ(Setting("Footnote"), "Protests by 18:00");
    EXPECT_GT(id, 0);
    EXPECT_EQ(db.Text("SELECT Description FROM HandicapType WHERE Id=" + std::to_string(id)),
              "IRC");
    EXPECT_NE(Setting("LastModified"), "<no row>");
}

TEST_F(PutOptionsTest, SavingTheSameNameAgainRewritesTheTypeWithoutAddingOne) {
    const int irc = AddType("IRC");
    const long long types = db.Count("HandicapType");
    int id = irc;
    ASSERT_EQ(results.PutOptions("", "", "", id, "irc"), "");
    EXPECT_EQ(id, irc);
    EXPECT_EQ(db.Count("HandicapType"), types);
    EXPECT_EQ(db.Text("SELECT Description FROM HandicapType WHERE Id=" + std::to_string(irc)),
              "irc");
}

TEST_F(PutOptionsTest, RenamesTheChosenType) {
    const int irc = AddType("IRC");
    int id = irc;
    ASSERT_EQ(results.PutOptions("", "", "", id, "IRC 2026"), "");
    EXPECT_EQ(db.Count("HandicapType", "Description='IRC'"), 0);
    EXPECT_EQ(db.Count("HandicapType", "Description='IRC 2026' AND Id=" + std::to_string(irc)), 1);
}

TEST_F(PutOptionsTest, ANameAnotherTypeHoldsIsRefusedButTheTextsStaySaved) {
    AddType("Portsmouth Yardstick");
    const int irc = AddType("IRC");
    int id = irc;
    EXPECT_EQ(results.PutOptions("Harbour SC", "c", "f", id, "portsmouth yardstick"),
              "E-Another handicap system named 'portsmouth yardstick' already exists");
    EXPECT_EQ(Setting("Header"), "Harbour SC");
    EXPECT_EQ(Setting("Footnote"), "f");
    EXPECT_EQ(db.Count("HandicapType", "Id=" + std::to_string(irc) + " AND Description='IRC'"), 1);
    EXPECT_EQ(Setting("LastModified"), "<no row>");

    int fresh = 0;
    EXPECT_NE(results.PutOptions("", "", "", fresh, "IRC"), "");
    EXPECT_EQ(fresh, 0);
}

TEST_F(PutOptionsTest, ATypeRemovedMeanwhileIsAddedAgain) {
    int id = AddType("Club");
    db.Exec("DELETE FROM HandicapType WHERE Id=" + std::to_string(id));
    const int removed = id;
    ASSERT_EQ(results.PutOptions("", "", "", id, "Club"), "");
    EXPECT_NE(id, removed);
    EXPECT_EQ(db.Count("HandicapType", "Description='Club'"), 1);
}

TEST_F(PutOptionsTest, AMissingDatabaseGivesTheConnectionError) {
    DataFile = db.folder() + "/missing.db";
    int id = 0;
    const std::string Msg = results.PutOptions("h", "c", "f", id, "IRC");
    EXPECT_EQ(Msg.rfind("C-Error ", 0), 0u) << Msg;
    EXPECT_NE(Msg.find(" in ConnectDb\r"), std::string::npos) << Msg;
}

}  // namespace
}  // namespace tb
