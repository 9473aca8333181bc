#include <algorithm>
#include <cctype>

#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kResult = R"sql(
SELECT Results.Id, Results.FinishTime, Results.Status, Results.PenaltyMins,
       Results.PenaltyPercent, Results.PenaltyPoints, Results.Notes
FROM Results
WHERE Results.Schedule = ?1 AND Results.Entrant = ?2)sql";

constexpr const char* kFindResult = "SELECT Id FROM Results WHERE Schedule = ?1 AND Entrant = ?2";
constexpr const char* kAddResult = R"sql(
INSERT INTO Results (Schedule, Entrant, FinishTime, Status, PenaltyMins, PenaltyPercent,
                     PenaltyPoints, Notes)
VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8))sql";
constexpr const char* kUpdateResult = R"sql(
UPDATE Results SET Schedule = ?1, Entrant = ?2, FinishTime = ?3, Status = ?4, PenaltyMins = ?5,
                   PenaltyPercent = ?6, PenaltyPoints = ?7, Notes = ?8
WHERE Id = ?9)sql";

constexpr const char* kStatus =
    "SELECT Status.Id, Status.Code, Status.Description FROM Status ORDER BY Status.Code, Status.Id";

// The race's entered boats by sail number, by full sail number and by the start of the name.
constexpr const char* kBoatBySailNo = R"sql(
SELECT Entrant.Id, Boat.BoatName, Boat.FullSailNo, Class.ClassName
FROM Class
JOIN Entrant ON Class.Id = Entrant.Class
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN EntryList ON Entrant.Id = EntryList.Entrant
WHERE EntryList.Schedule = ?1 AND Boat.SailNo = ?2
ORDER BY Boat.SailNo, Boat.BoatName, Entrant.Id)sql";
constexpr const char* kBoatByFullSailNo = R"sql(
SELECT Entrant.Id, Boat.BoatName, Boat.FullSailNo, Class.ClassName
FROM Class
JOIN Entrant ON Class.Id = Entrant.Class
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN EntryList ON Entrant.Id = EntryList.Entrant
WHERE EntryList.Schedule = ?1 AND Boat.FullSailNo = ?2
ORDER BY Boat.FullSailNo, Boat.BoatName, Entrant.Id)sql";
// The typed text is taken literally: its % and _ are escaped, not wildcards.
constexpr const char* kBoatByName = R"sql(
SELECT Entrant.Id, Boat.BoatName, Boat.FullSailNo, Class.ClassName
FROM Class
JOIN Entrant ON Class.Id = Entrant.Class
JOIN Boat ON Boat.Id = Entrant.Boat
JOIN EntryList ON Entrant.Id = EntryList.Entrant
WHERE EntryList.Schedule = ?1 AND Boat.BoatName LIKE ?2 || '%' ESCAPE '\'
ORDER BY Boat.BoatName, Entrant.Id)sql";

// Characters of text from a 1-based position, as many as there are up to count.
std::string Mid(const std::string& text, std::size_t start, std::size_t count) {
    if (start > text.size())
        return {};
    return text.substr(start - 1, count);
}

std::string Right(const std::string& text, std::size_t count) {
    return text.size() <= count ? text : text.substr(text.size() - count);
}

// The finish as date " " hh:mm:ss; text that does not make a date-time is a type mismatch.
Value FinishDateTime(const std::string& FinishTime, const std::string& FinishDate) {
    if (FinishTime.empty())
        return {};
    return Value(TypedDateTime(FinishDate + " " + Mid(FinishTime, 1, 2) + ":" +
                               Mid(FinishTime, 3, 2) + ":" + Right(FinishTime, 2)));
}

Value NumberOrZero(const std::string& text) {
    return text.empty() ? Value(0) : Value(TypedNumber(text));
}

std::string EscapeLike(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        if (c == '%' || c == '_' || c == '\\')
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

bool IsDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

}  // namespace

std::string clResults::GetResult(int RaceId, int EntrantId, RowSet& Row) {
    Row = RowSet(ResultCol::Count, 1);
    return Run("GetResult", Shape::Query, [&] {
        RowSet found = Query(kResult, {RaceId, EntrantId});
        if (!found.IsEmpty())
            Row = std::move(found);
        return std::string();
    });
}

std::string clResults::PutResult(int RaceId, int EntrantId, const std::string& FinishTime,
                                 const std::string& FinishDate, int Status,
                                 const std::string& PenaltyMins, const std::string& PenaltyPercent,
                                 const std::string& PenaltyPoints, const std::string& Notes) {
    return Run("PutResult", Shape::Store, [&] {
        std::vector<Value> values{RaceId,
                                  EntrantId,
                                  FinishDateTime(FinishTime, FinishDate),
                                  Status,
                                  NumberOrZero(PenaltyMins),
                                  NumberOrZero(PenaltyPercent),
                                  NumberOrZero(PenaltyPoints),
                                  Notes.empty() ? Value() : Value(Notes)};
        const RowSet existing = Query(kFindResult, {RaceId, EntrantId});
        if (existing.IsEmpty()) {
            Execute(kAddResult, values);
        } else {
            values.push_back(existing(kOnlyColumn, kFirstRow));
            Execute(kUpdateResult, values);
        }
        return std::string();
    });
}

std::string clResults::GetStatus(RowSet& Rows) {
    return Run("GetStatus", Shape::Query, [&] {
        RowSet found = Query(kStatus);
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::GetBoatInRace(int RaceId, const std::string& Search, RowSet& Rows) {
    Rows = RowSet(kOnlyColumn + 1, 1);
    return Run("GetBoatInRace", Shape::Query, [&] {
        if (Search.empty())
            return std::string();
        const auto digits = std::count_if(Search.begin(), Search.end(), IsDigit);
        RowSet found;
        if (digits == static_cast<std::ptrdiff_t>(Search.size())) {
            found = Query(kBoatBySailNo, {RaceId, TypedNumber(Search)});
        } else if (digits > 0) {
            found = Query(kBoatByFullSailNo, {RaceId, Search});
        } else {
            found = Query(kBoatByName, {RaceId, EscapeLike(Search)});
        }
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

}  // namespace tb
