#include <gtest/gtest.h>

#include <regex>

#include "data/clResults.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    test::TestDatabase db;
    clResults results;
};

TEST_F(SettingsTest, EmptyStoresNullAndNullReadsBackEmpty) {
    ASSERT_EQ(results.PutSetting("Comment", "Results are provisional"), "");
    std::string value;
    ASSERT_EQ(results.GetSetting("Comment", value), "");
    EXPECT_EQ(value, "Results are provisional");

    ASSERT_EQ(results.PutSetting("Comment", ""), "");
    EXPECT_EQ(db.Count("Settings", "Parameter='Comment' AND Value IS NULL"), 1);
    value = "stale";
    ASSERT_EQ(results.GetSetting("Comment", value), "");
    EXPECT_EQ(value, "");
}

TEST_F(SettingsTest, AMissingParameterIsCreatedAndAbsentOneKeepsTheCallersValue) {
    std::string value = "untouched";
    ASSERT_EQ(results.GetSetting("LastSeries", value), "");
    EXPECT_EQ(value, "untouched");
    ASSERT_EQ(results.PutSetting("LastSeries", "12"), "");
    ASSERT_EQ(results.PutSetting("LastSeries", "13"), "");
    EXPECT_EQ(db.Count("Settings", "Parameter='LastSeries'"), 1);
    ASSERT_EQ(results.GetSetting("LastSeries", value), "");
    EXPECT_EQ(value, "13");
}

TEST_F(SettingsTest, ValuesWithApostrophesAndQuotesAreStoredAsTyped) {
    const std::string header = "O'Neil's Cup; \"Me & You\" <results>";
    ASSERT_EQ(results.PutSetting("Header", header), "");
    std::string value;
    ASSERT_EQ(results.GetSetting("Header", value), "");
    EXPECT_EQ(value, header);
}

TEST_F(SettingsTest, PutSettingDoesNotStampTheChange) {
    ASSERT_EQ(results.PutSetting("Footnote", "x"), "");
    EXPECT_EQ(db.Count("Settings", "Parameter='LastModified'"), 0);
}

}  // namespace
}  // namespace tb
