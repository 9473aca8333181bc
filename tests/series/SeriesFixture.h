#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/clResults.h"
#include "support/TestDatabase.h"

namespace tb::test {

// A fresh database with the rows the series operations refer to, arranged with plain SQL so
// that each test states only what it is about.
class SeriesFixture : public ::testing::Test {
protected:
    int AddHandicapType(const std::string& description) {
        return db.Insert("INSERT INTO HandicapType (Description) VALUES (?1)", {description});
    }
    int AddPerson(const std::string& first, const std::string& last) {
        return db.Insert("INSERT INTO People (Firstname, Lastname) VALUES (?1, ?2)", {first, last});
    }
    int AddBoat(const std::string& name, const std::string& sailNo, int owner) {
        return db.Insert("INSERT INTO Boat (BoatName, FullSailNo, Owner) VALUES (?1, ?2, " +
                             std::to_string(owner) + ")",
                         {name, sailNo});
    }
    // Dates as stored: "YYYY-MM-DD"; an empty text is Null.
    void AddHandicap(int boat, int type, double tcf, const std::string& from,
                     const std::string& expires = "") {
        auto date = [](const std::string& d) {
            return d.empty() ? std::string("NULL") : "'" + d + " 00:00:00'";
        };
        db.Exec(
            "INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom, Expires) VALUES (" +
            std::to_string(boat) + ", " + std::to_string(type) + ", " + std::to_string(tcf) + ", " +
            date(from) + ", " + date(expires) + ")");
    }
    int AddSeries(const std::string& title) {
        int id = 0;
        EXPECT_EQ(results.PutSeriesDetails(id, title, "", 1, "1"), "");
        return id;
    }
    int AddRace(int series, const std::string& name, const std::string& isoDate,
                bool inSubSeries = false) {
        return db.Insert("INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES (" +
                             std::to_string(series) + ", ?1, ?2, " + (inSubSeries ? "1" : "0") +
                             ")",
                         {name, isoDate + " 00:00:00"});
    }
    int AddClass(int series, const std::string& name, int handicapType) {
        return db.Insert("INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (" +
                             std::to_string(series) + ", ?1, " + std::to_string(handicapType) +
                             ", NULL)",
                         {name});
    }
    int AddEntrant(int series, int boat, int classId, int person) {
        return db.Insert(
            "INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant, EntryDate) VALUES (" +
            std::to_string(series) + ", " + std::to_string(boat) + ", " + std::to_string(classId) +
            ", 0, " + std::to_string(person) + ", '2002-06-01 00:00:00')");
    }
    void Enter(int entrant, int race) {
        db.Exec("INSERT INTO EntryList (Entrant, Schedule) VALUES (" + std::to_string(entrant) +
                ", " + std::to_string(race) + ")");
    }
    void AddResult(int entrant, int race) {
        db.Exec("INSERT INTO Results (Schedule, Entrant, Status) VALUES (" + std::to_string(race) +
                ", " + std::to_string(entrant) + ", 2)");
    }

    TestDatabase db;
    clResults results;
};

}  // namespace tb::test
