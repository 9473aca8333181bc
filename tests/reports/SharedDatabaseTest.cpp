// Two programs on one club database held by the server: the start box records a race's finishes
// while the clubhouse makes the combined report again and again.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "app/Globals.h"
#include "reports/ReportFixture.h"
#include "support/ChildProcess.h"

namespace tb::test {
namespace {

constexpr int kCombined = 5;
constexpr int kFinishes = 200;
constexpr int kReports = 20;

class SharedDatabaseTest : public ReportFixture {
protected:
    SharedDatabaseTest() {
        const int evening = season.AddClass("Evening fleet");
        for (int i = 0; i < kFinishes; ++i)
            boats.push_back(season.AddEntrant("Boat " + std::to_string(i), evening));
        race3 = season.AddRace("Race 3", "2024-06-29");
        season.EnterAll(race3);
        for (int classId : {class1, multihull, fleet, evening})
            season.Start(race3, classId);
        UseMenu("series=,,,0,0");
    }

    // What the start box does: each finish saved on its own, as they are typed.
    std::string RecordFinishes() {
        RecordingMessages shown;
        clResults startBox;
        std::string failures;
        for (std::size_t i = 0; i < boats.size(); ++i) {
            char time[24];
            std::snprintf(time, sizeof time, "11%02zu%02zu", i / 60, i % 60);
            failures += startBox.PutResult(race3, boats[i], time, "29 Jun 2024", 9, "", "", "", "");
        }
        for (const std::string& text : shown.Texts())
            failures += text;
        return failures;
    }

    std::vector<int> boats;
    int race3 = 0;
};

TEST_F(SharedDatabaseTest, FinishesSavedWhileReportsAreMadeAreAllKept) {
    if (!TestDatabase::OnServer())
        GTEST_SKIP() << "two programs share a database on the server";
    std::future<std::string> startBox = StartInChild([this] { return RecordFinishes(); });
    std::string path;
    for (int i = 0; i < kReports; ++i)
        EXPECT_EQ(results.CreateReport(kCombined, 0, 0, race3, path), "") << i;
    EXPECT_EQ(startBox.get(), "");
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{});
    EXPECT_EQ(db.Count("Results", "Schedule = " + std::to_string(race3) +
                                      " AND Status = 9 AND FinishTime IS NOT NULL"),
              kFinishes + 0LL);

    // The last report is the one the data alone gives, made on a copy of it in a file.
    ASSERT_EQ(results.CreateReport(kCombined, 0, 0, race3, path), "");
    const std::string last = WithoutReportTime(ReadFile(path));
    const std::string copy = folder.path() + "/alone.db";
    ASSERT_EQ(results.CopyDatabase(copy), "");
    tb::DataFile = copy;
    clResults alone;
    ASSERT_EQ(alone.ReadReportMenu(folder.path() + "/menu.ini"), "");
    ASSERT_EQ(alone.CreateReport(kCombined, 0, 0, race3, path), "");
    EXPECT_EQ(WithoutReportTime(ReadFile(path)), last);
}

}  // namespace
}  // namespace tb::test
