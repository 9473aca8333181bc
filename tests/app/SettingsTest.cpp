#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    std::string Setting(const std::string& name) {
        return db.Text("SELECT Value FROM Settings WHERE Parameter='" + name + "'");
    }
    int AddType(const std::string& description) {
        return db.Insert("INSERT INTO HandicapType (Description) VALUES (?1)", {description});
    }
    std::string TypeName(int id) {
        return db.Text("SELECT Description FROM HandicapType WHERE Id=" + std::to_string(id));
    }

    test::TestDatabase db;
    clResults results;
};

TEST_F(SettingsTest, StoredAsTypedInOneRowWithEmptyAsNullAndNoStamp) {
    std::string value = "untouched";
    ASSERT_EQ(results.GetSetting("LastSeries", value), "");
    EXPECT_EQ(value, "untouched") << "an absent parameter keeps the caller's value";
    const std::string typed = "O'Neil's Cup; \"Me & You\" <results>";
    ASSERT_EQ(results.PutSetting("LastSeries", "12"), "");
    ASSERT_EQ(results.PutSetting("LastSeries", typed), "");
    EXPECT_EQ(db.Count("Settings", "Parameter='LastSeries'"), 1);
    ASSERT_EQ(results.GetSetting("LastSeries", value), "");
    EXPECT_EQ(value, typed);

    ASSERT_EQ(results.PutSetting("LastSeries", ""), "");
    EXPECT_EQ(db.Count("Settings", "Parameter='LastSeries' AND Value IS NULL"), 1);
    ASSERT_EQ(results.GetSetting("LastSeries", value), "");
    EXPECT_EQ(value, "");
    EXPECT_FALSE(db.Stamped());
}

TEST_F(SettingsTest, OptionsSaveTheTextsAndAddOrRenameTheChosenHandicapSystem) {
    int id = 0;
    ASSERT_EQ(results.PutOptions("Harbour SC", "Provisional", "Protests by 18:00", id, "IRC"), "");
    EXPECT_EQ(Setting("Header") + "|" + Setting("Comment") + "|" + Setting("Footnote"),
              "Harbour SC|Provisional|Protests by 18:00");
    EXPECT_GT(id, 0);
    EXPECT_EQ(TypeName(id), "IRC");
    EXPECT_TRUE(db.Stamped());

    // The same name in other letters, then a new name: the chosen row each time.
    const int irc = id;
    for (const char* name : {"irc", "IRC 2026"}) {
        ASSERT_EQ(results.PutOptions("", "", "", id, name), "");
        EXPECT_EQ(id, irc);
        EXPECT_EQ(TypeName(irc), name);
        EXPECT_EQ(db.Count("HandicapType"), 1);
    }

    // A system removed meanwhile is added again.
    db.Exec("DELETE FROM HandicapType");
    ASSERT_EQ(results.PutOptions("", "", "", id, "Club"), "");
    EXPECT_NE(id, irc);
    EXPECT_EQ(TypeName(id), "Club");
}

TEST_F(SettingsTest, OptionsRefuseANameAnotherSystemHoldsButKeepTheTexts) {
    AddType("Portsmouth Yardstick");
    const int irc = AddType("IRC");
    int id = irc;
    EXPECT_EQ(results.PutOptions("Harbour SC", "c", "f", id, "portsmouth yardstick"),
              "E-Another handicap system named 'portsmouth yardstick' already exists");
    EXPECT_EQ(Setting("Header"), "Harbour SC");
    EXPECT_EQ(Setting("Footnote"), "f");
    EXPECT_EQ(TypeName(irc), "IRC");
    EXPECT_FALSE(db.Stamped());

    int fresh = 0;
    EXPECT_NE(results.PutOptions("", "", "", fresh, "IRC"), "");
    EXPECT_EQ(fresh, 0);

    DataFile = db.folder() + "/missing.db";
    clResults unconnected;
    EXPECT_TRUE(
        test::IsRunTimeError(unconnected.PutOptions("h", "c", "f", id, "IRC"), "ConnectDb"));
}

// The stores of classes, models and handicaps stamp the file's change time, to the minute.
TEST_F(SettingsTest, StoresStampTheChangeTime) {
    const int type = AddType("Club");
    db.Exec("INSERT INTO Series (Id, Title) VALUES (1, 'Summer')");
    const int boat = db.Insert("INSERT INTO Boat (BoatName) VALUES (?1)", {"Gull"});
    int model = -1;
    const std::pair<const char*, std::function<std::string()>> stores[] = {
        {"class", [&] { return results.PutClassDetails(0, 1, "Class 1", "0", type); }},
        {"model", [&] { return results.PutModelDetails(model, "Laser", 4.2, 0.8); }},
        {"handicap",
         [&] { return results.PutHandicapDetails(0, boat, type, "1.05", "01/01/2024", ""); }},
    };
    const std::regex stamp(R"(\d\d [A-Z][a-z]{2} \d{4} \d\d:\d\d)");
    for (const auto& [name, store] : stores) {
        db.ForgetStamp();
        ASSERT_EQ(store(), "") << name;
        const std::string stamped = Setting("LastModified");
        EXPECT_TRUE(std::regex_match(stamped, stamp)) << name << ": " << stamped;
        EXPECT_TRUE(stamped.starts_with(FormatDate(Today(), "dd mmm yyyy"))) << name;
    }
}

}  // namespace
}  // namespace tb
