#include <gtest/gtest.h>

#include <random>

#include "app/Globals.h"
#include "cli/DemoSeason.h"
#include "data/clResults.h"
#include "support/Checks.h"
#include "support/TestDatabase.h"

namespace tb::test {
namespace {

const std::string kCsv = std::string(TALLYBOARD_TEST_FIXTURES) + "/csv/";
constexpr int kDemoRace = 3;

std::string Exported(clResults& db, CsvKind kind, int race = 0) {
    std::string csv;
    EXPECT_EQ(db.ExportCsv(kind, race, csv), "") << CsvKindName(kind);
    return csv;
}

// A small demonstration season: its race 3 has two classes of boats with finishes.
class DemoSeason : public ::testing::Test {
protected:
    void SetUp() override {
        cli::DemoSize size;
        size.boats = 80, size.races = 4, size.classes = 2;
        ASSERT_EQ(cli::CreateDemoSeason(path, size), "");
        tb::DataFile = path;
    }
    TempFolder folder;
    std::string path = folder.path() + "/demo.db";
    clResults db;
};

// Every bad file gives its row-numbered message, and nothing of it is written.
TEST_F(DemoSeason, BadFilesAreRefusedWhole) {
    const std::string fingerprint = DataFile("exchange/register-fingerprint.sql");
    const std::string before = Scalar(path, fingerprint);
    for (const auto& row : DataFileRows("exchange/bad-csv.tsv")) {
        ImportReport report;
        const std::string Msg = db.ImportCsv(*CsvKindNamed(row.at(0)), kCsv + "bad/" + row[1],
                                             false, kDemoRace, report);
        EXPECT_EQ(Msg, "E-" + row.at(2) + "\nNothing was imported.") << row[1];
    }
    // Ten megabytes of noise are no register either.
    std::string noise(10 * 1024 * 1024, '\0');
    std::mt19937 random(19);
    for (char& c : noise)
        c = static_cast<char>(random() % 255 + 1);
    WriteFile(folder.path() + "/noise.csv", noise);
    ImportReport report;
    EXPECT_NE(db.ImportCsv(CsvKind::People, folder.path() + "/noise.csv", false, 0, report), "");
    EXPECT_EQ(Scalar(path, fingerprint), before);
}

// A timing app's finishes give the race the results that were typed in: the race's results,
// written out, read back as finishes into the race emptied of them, come out the same.
TEST_F(DemoSeason, FinishesGiveTheResultsTyped) {
    const std::string typed = Exported(db, CsvKind::Results, kDemoRace);
    ASSERT_GT(std::count(typed.begin(), typed.end(), '\n'), 30);
    ASSERT_NE(Scalar(path, "SELECT count(*) FROM Results WHERE Status <> 9 AND Schedule=3"), "0");
    SQLite::Database(path, SQLite::OPEN_READWRITE).exec("DELETE FROM Results WHERE Schedule=3");
    WriteFile(folder.path() + "/finishes.csv", typed);
    ImportReport report;
    EXPECT_EQ(
        db.ImportCsv(CsvKind::Finishes, folder.path() + "/finishes.csv", false, kDemoRace, report),
        "");
    EXPECT_EQ(Exported(db, CsvKind::Results, kDemoRace), typed);
}

// A spreadsheet's register (semicolons, Windows-1252, CRLF, quoted names with commas and
// apostrophes) reads into the register the editors show; written out and read into an empty
// database it gives the same register again.
TEST(ImportExport, ClubRegisterRoundTrip) {
    const CsvKind kinds[] = {CsvKind::People, CsvKind::Models, CsvKind::Boats, CsvKind::Handicaps};
    TempFolder folder;
    std::vector<std::string> written;
    {
        TestDatabase database;
        clResults db;
        ImportReport report;
        std::string summaries;
        for (const auto& [kind, file] : {std::pair{CsvKind::People, "members"},
                                         {CsvKind::Boats, "boats"},
                                         {CsvKind::Handicaps, "handicaps"},
                                         {CsvKind::Handicaps, "handicaps"}}) {
            EXPECT_EQ(db.ImportCsv(kind, kCsv + "club/" + file + ".csv", false, 0, report), "");
            summaries += report.Summary;
        }
        EXPECT_EQ(summaries, DataFile("exchange/club-register-summaries.txt"));
        for (CsvKind kind : kinds) {
            written.push_back(Exported(db, kind));
            EXPECT_EQ(written.back(),
                      ReadFile(kCsv + "club/expected-" + CsvKindName(kind) + ".csv"));
            WriteFile(folder.path() + "/" + CsvKindName(kind) + ".csv", written.back());
        }
    }
    TestDatabase empty;
    clResults db;
    ImportReport report;
    for (CsvKind kind : kinds) {
        const std::string file = folder.path() + "/" + CsvKindName(kind) + ".csv";
        EXPECT_EQ(db.ImportCsv(kind, file, false, 0, report), "") << file;
    }
    for (std::size_t k = 0; k < written.size(); ++k)
        EXPECT_EQ(Exported(db, kinds[k]), written[k]) << CsvKindName(kinds[k]);
}

}  // namespace
}  // namespace tb::test
