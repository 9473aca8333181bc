#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/clResults.h"
#include "support/TestDatabase.h"

namespace tb::test {

// A fresh database and the few rows the series operations refer to; larger arrangements are SQL
// data files under tests/data/golden/series.
class SeriesFixture : public ::testing::Test {
protected:
    int AddHandicapType(const std::string& description) {
        return db.Insert("INSERT INTO HandicapType (Description) VALUES (?1)", {description});
    }
    int AddSeries(const std::string& title) {
        int id = 0;
        EXPECT_EQ(results.PutSeriesDetails(id, title, "", 1, "1"), "");
        return id;
    }
    int AddClass(int series, const std::string& name, int handicapType) {
        return db.Insert("INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (" +
                             std::to_string(series) + ", ?1, " + std::to_string(handicapType) +
                             ", NULL)",
                         {name});
    }
    void AddResult(int entrant, int race) {
        db.Exec("INSERT INTO Results (Schedule, Entrant, Status) VALUES (" + std::to_string(race) +
                ", " + std::to_string(entrant) + ", 2)");
    }

    TestDatabase db;
    clResults results;
};

}  // namespace tb::test
