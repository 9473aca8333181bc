#include "data/DateColumns.h"
#include "data/RunTimeFault.h"
#include "data/clResults.h"

namespace tb {

namespace {

// A missing first or family name leaves its part of "Family, First" empty.
constexpr const char* kPeople = R"sql(
SELECT People.Id, coalesce(People.Lastname, '') || ', ' || coalesce(People.Firstname, '') AS Person,
       People.City, People.Postcode
FROM People
ORDER BY People.Lastname, People.Firstname)sql";

constexpr const char* kPersonDetails = R"sql(
SELECT People.Title, People.Firstname, People.Lastname, People.Address1, People.Address2,
       People.City, People.Postcode, People.Country, People.TelNo, People.FaxNo, People.DayTelNo,
       People.MobileNo, People.ClubMember, People.EmailAddress
FROM People WHERE People.Id = ?1)sql";

// Series without a race do not appear: they have no first race date.
constexpr const char* kSeriesForPerson = R"sql(
SELECT Min(Schedule.RaceDate), Series.Title
FROM Entrant
JOIN Series ON Entrant.Series = Series.Id
JOIN Schedule ON Series.Id = Schedule.Series
WHERE Entrant.Entrant = ?1
GROUP BY Series.Title
ORDER BY Min(Schedule.RaceDate) DESC, Series.Title)sql";

// Names compare without regard to case (the columns are declared so).
constexpr const char* kFindName =
    "SELECT People.Id FROM People WHERE People.Firstname=?1 AND People.Lastname=?2";
constexpr const char* kFindPerson =
    "SELECT People.Id FROM People WHERE People.Lastname LIKE ?1 || '%' ORDER BY People.Lastname";

constexpr const char* kAddPerson = R"sql(
INSERT INTO People (Title, Firstname, Lastname, Address1, Address2, City, Postcode, Country,
                    TelNo, FaxNo, DayTelNo, MobileNo, ClubMember, EmailAddress)
VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14))sql";
constexpr const char* kUpdatePerson = R"sql(
UPDATE People SET Title=?1, Firstname=?2, Lastname=?3, Address1=?4, Address2=?5, City=?6,
                  Postcode=?7, Country=?8, TelNo=?9, FaxNo=?10, DayTelNo=?11, MobileNo=?12,
                  ClubMember=?13, EmailAddress=?14
WHERE Id=?15)sql";
constexpr const char* kRemovePerson = "DELETE FROM People WHERE Id=?1";

// What a find gives when nobody matches: one row whose Id is empty, so the caller reads 0.
RowSet NobodyFound() {
    return RowSet(clResults::FoundCol::Count, 1);
}

}  // namespace

std::string clResults::GetPeople(RowSet& People) {
    return Run("GetPeople", Shape::Query, [&] {
        People = Query(kPeople);
        return std::string();
    });
}

std::string clResults::GetPersonDetails(int Id, RowSet& Detail) {
    return Run("GetPersonDetails", Shape::Query, [&] {
        RowSet found = Query(kPersonDetails, {Id});
        if (found.IsEmpty())
            throw RunTimeFault::NoCurrentRecord();
        Detail = std::move(found);
        return std::string();
    });
}

std::string clResults::GetSeriesForPerson(int PersonId, RowSet& Series) {
    return Run("GetSeriesForPerson", Shape::Query, [&] {
        Series = Query(kSeriesForPerson, {PersonId});
        ReadAsDates(Series, SeriesEnteredCol::FirstRaceDate);
        return std::string();
    });
}

std::string clResults::FindName(const std::string& Firstname, const std::string& Lastname,
                                RowSet& People) {
    People = NobodyFound();
    return Run("FindName", Shape::Query, [&] {
        RowSet found = Query(kFindName, {Firstname, Lastname});
        if (!found.IsEmpty())
            People = std::move(found);
        return std::string();
    });
}

std::string clResults::FindPerson(const std::string& LastnameStart, RowSet& People) {
    People = NobodyFound();
    return Run("FindPerson", Shape::Query, [&] {
        RowSet found = Query(kFindPerson, {LastnameStart});
        if (!found.IsEmpty())
            People = std::move(found);
        return std::string();
    });
}

std::string clResults::PutPersonalDetails(int& Id, const std::string& Title,
                                          const std::string& Firstname, const std::string& Lastname,
                                          const std::string& Address1, const std::string& Address2,
                                          const std::string& City, const std::string& Postcode,
                                          const std::string& Country, const std::string& TelNo,
                                          const std::string& FaxNo, const std::string& DayTelNo,
                                          const std::string& MobileNo, bool ClubMember,
                                          const std::string& EmailAddress) {
    int id = Id;
    const std::string Msg = Run("PutPersonalDetails", Shape::Store, [&] {
        std::vector<Value> columns{Title,    Firstname, Lastname,   Address1,    Address2,
                                   City,     Postcode,  Country,    TelNo,       FaxNo,
                                   DayTelNo, MobileNo,  ClubMember, EmailAddress};
        if (id == 0) {
            Execute(kAddPerson, columns);
            id = static_cast<int>(LastInsertId());
        } else {
            columns.emplace_back(id);
            if (Execute(kUpdatePerson, columns) == 0)
                throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
    if (Msg.empty())
        Id = id;
    return Msg;
}

std::string clResults::RemovePerson(int Id) {
    return Run("RemovePerson", Shape::Remove, [&] {
        Execute(kRemovePerson, {Id});
        return std::string();
    });
}

}  // namespace tb
