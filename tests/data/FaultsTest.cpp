#include <gtest/gtest.h>

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include <SQLiteCpp/Database.h>

#include "app/Globals.h"
#include "data/clResults.h"
#include "support/ChildProcess.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"

namespace tb {
namespace {

using test::RecordingMessages;
using test::RunUnprivileged;
using test::TestDatabase;

TEST(Faults, AWriteLockedFileIsWaitedForThenReported) {
    if (TestDatabase::OnServer())
        GTEST_SKIP() << "the server queues writers itself";
    TestDatabase db;
    RecordingMessages messages;
    db.Exec("UPDATE Settings SET Value='Club racing' WHERE Parameter='Header'");
    clResults results;
    std::string value;
    ASSERT_EQ(results.GetSetting("Header", value), "");

    // Another connection holding the file write-locked, as another program would.
    SQLite::Database holder(db.path(), SQLite::OPEN_READWRITE);
    holder.exec("BEGIN IMMEDIATE");
    holder.exec("UPDATE Settings SET Value='held' WHERE Parameter='Comment'");
    const std::string Msg = results.PutSetting("Header", "Evening series");
    EXPECT_TRUE(Msg.starts_with("C-Error 5 raised by SQLite in PutSetting\r")) << Msg;

    // Reading is not blocked by another program's write lock.
    EXPECT_EQ(results.GetSetting("Header", value), "");
    EXPECT_EQ(value, "Club racing");

    // A write waits for a lock that is let go meanwhile, instead of failing at once.
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        holder.exec("ROLLBACK");
    });
    EXPECT_EQ(results.PutSetting("Header", "Evening series"), "");
    release.join();
    EXPECT_EQ(db.Text("SELECT Value FROM Settings WHERE Parameter='Header'"), "Evening series");
    EXPECT_EQ(db.Text("SELECT Value FROM Settings WHERE Parameter='Comment'"), "");
    EXPECT_EQ(db.Text("PRAGMA integrity_check"), "ok");
}

TEST(Faults, AReadOnlyDataFileGivesAMessageAndStaysAsItWas) {
    if (TestDatabase::OnServer())
        GTEST_SKIP() << "a database on the server has no file";
    TestDatabase db;
    db.Exec("UPDATE Settings SET Value='Club racing' WHERE Parameter='Header'");
    db.Exec("PRAGMA wal_checkpoint(TRUNCATE)");
    const std::filesystem::path folder = std::filesystem::path(db.path()).parent_path();
    chmod(folder.c_str(), 0755);
    chmod(db.path().c_str(), 0444);

    const std::string Msg = RunUnprivileged([] {
        RecordingMessages messages;
        clResults results;
        std::string value;
        std::string read = results.GetSetting("Header", value);
        if (!read.empty())
            return read;
        return value + "|" + results.PutSetting("Header", "Evening series");
    });
    chmod(db.path().c_str(), 0644);
    EXPECT_TRUE(Msg.starts_with("Club racing|C-Error ") || Msg.starts_with("C-Error ")) << Msg;
    EXPECT_EQ(db.Text("SELECT Value FROM Settings WHERE Parameter='Header'"), "Club racing");
}

}  // namespace
}  // namespace tb
