#pragma once

// The checks every row of an import passes before anything is written: the same rules and
// message texts as the editors and the results window, each problem naming the file, the row
// and the column. They need no database, so they run on the whole file first.

#include <optional>
#include <string>
#include <vector>

#include "data/Value.h"
#include "exchange/Columns.h"
#include "exchange/Csv.h"

namespace tb {

struct PersonRow {
    int Row = 0;
    std::string Title, Firstname, Lastname, Address1, Address2, City, Postcode, Country, TelNo,
        FaxNo, DayTelNo, MobileNo, EmailAddress;
    bool ClubMember = false;
};

struct ModelRow {
    int Row = 0;
    std::string Model;
    double LOA = 0;
    double Draft = 0;
};

// An owner given as "First Last" or "Last, First".
struct PersonName {
    std::string Firstname, Lastname;
};

struct BoatRow {
    int Row = 0;
    std::string BoatName, FullSailNo, Model;
    PersonName Owner;
};

struct HandicapRow {
    int Row = 0;
    std::string SailNo, HandicapType;
    double Tcf = 0;
    DateTime EffectiveFrom;
    std::optional<DateTime> Expires;
};

struct FinishRow {
    int Row = 0;
    std::string Boat;        // a sail number, full sail number or boat name
    std::string BoatColumn;  // the column it came from, for messages
    std::optional<long long> TimeOfDay;
    std::optional<DateTime> Day;  // a finish day given in the file
    bool NextDay = false;         // the day after the start
    std::string Status, PenaltyMins, PenaltyPercent, PenaltyPlaces, Notes;
};

struct ImportRows {
    std::vector<PersonRow> People;
    std::vector<ModelRow> Models;
    std::vector<BoatRow> Boats;
    std::vector<HandicapRow> Handicaps;
    std::vector<FinishRow> Finishes;
};

// "Smith, Anna" and "Anna Smith" are both Anna Smith (the last comma or the last blank divides
// them); a single word is a family name.
PersonName SplitPersonName(const std::string& name);

// Where a problem is: "clubs.csv row 4, column Surname: ".
std::string ProblemPlace(const std::string& file, int row, const std::string& column);

// Checks the rows of the table for the kind and gives every problem found (none when the rows
// are fit to import); the checked rows come back in Rows.
std::vector<std::string> CheckRows(CsvKind kind, const CsvTable& table, const std::string& file,
                                   ImportRows& Rows);

}  // namespace tb
