#include "data/TypedInput.h"
#include "data/clResults.h"

namespace tb {

namespace {

constexpr const char* kSeriesDetails =
    "SELECT Series.Title, Series.SubseriesTitle, Series.Scoring, Series.Discards FROM Series "
    "WHERE Id=?1";
constexpr const char* kAddSeries =
    "INSERT INTO Series (Title, SubseriesTitle, Scoring, Discards) VALUES (?1, ?2, ?3, ?4)";
constexpr const char* kUpdateSeries =
    "UPDATE Series SET Title=?1, SubseriesTitle=?2, Scoring=?3, Discards=?4 WHERE Id=?5";
constexpr const char* kRemoveSeries = "DELETE FROM Series WHERE Id=?1";
// Splits of one name together, highest minimum first.
constexpr const char* kClassSplits = R"sql(
SELECT Class.Id, HandicapType.Description, Class.ClassName, Class.MinTCF
FROM Class JOIN HandicapType ON Class.HandicapType = HandicapType.Id
WHERE Class.Series = ?1
ORDER BY Class.ClassName, HandicapType.Description, Class.MinTCF DESC)sql";
constexpr const char* kClassDetails =
    "SELECT Class.HandicapType, Class.ClassName, Class.MinTCF FROM Class WHERE Class.Id=?1";
constexpr const char* kAddClass =
    "INSERT INTO Class (HandicapType, Series, MinTCF, ClassName) VALUES (?1, ?2, ?3, ?4)";
constexpr const char* kUpdateClass =
    "UPDATE Class SET HandicapType=?1, Series=?2, MinTCF=?3, ClassName=?4 WHERE Id=?5";
constexpr const char* kEntrantsInClass = "SELECT count(*) AS Qty FROM Entrant WHERE Class=?1";
constexpr const char* kRemoveClass = "DELETE FROM Class WHERE Id=?1";
constexpr const char* kEntryClasses = R"sql(
SELECT Class.Id, Class.ClassName, 'C' AS Flag, HandicapType.Description
FROM Class JOIN HandicapType ON Class.HandicapType = HandicapType.Id
WHERE Class.Series = ?1
ORDER BY ClassName)sql";

}  // namespace

std::string clResults::GetSeriesDetails(int SeriesId, RowSet& Rows) {
    return Run("GetSeriesDetails", Shape::Query, [&] {
        RowSet found = Query(kSeriesDetails, {SeriesId});
        if (found.IsEmpty())
            throw RunTimeFault::NoCurrentRecord();
        Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::PutSeriesDetails(int& SeriesId, const std::string& Title,
                                        const std::string& SubseriesTitle, int Scoring,
                                        const std::string& Discards) {
    int id = SeriesId;
    const std::string Msg = Run("PutSeriesDetails", Shape::Store, [&] {
        const Value discards(Value(TypedNumber(Discards)).AsInt());
        if (id == 0) {
            Execute(kAddSeries, {Title, SubseriesTitle, Scoring, discards});
            id = static_cast<int>(LastInsertId());
        } else if (Execute(kUpdateSeries, {Title, SubseriesTitle, Scoring, discards, id}) == 0) {
            throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
    if (Msg.empty() || Msg.rfind("C-", 0) != 0)
        SeriesId = id;
    return Msg;
}

std::string clResults::RemoveSeries(int SeriesId) {
    return Run("RemoveSeries", Shape::Remove, [&] {
        Execute(kRemoveSeries, {SeriesId});
        return std::string();
    });
}

std::string clResults::GetClassSplits(RowSet& Rows, int SeriesId) {
    return Run("GetClassSplits", Shape::Query, [&] {
        RowSet found = Query(kClassSplits, {SeriesId});
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::GetClassDetails(int ClassId, RowSet& Rows) {
    return Run("GetClassDetails", Shape::Query, [&] {
        RowSet found = Query(kClassDetails, {ClassId});
        if (!found.IsEmpty())
            Rows = std::move(found);
        return std::string();
    });
}

std::string clResults::PutClassDetails(int ClassId, int SeriesId, const std::string& ClassName,
                                       const std::string& MinTCF, short HandicapType) {
    return Run("PutClassDetails", Shape::Store, [&] {
        const Value minTcf = MinTCF.empty() ? Value() : Value(TypedNumber(MinTCF));
        if (ClassId == 0) {
            Execute(kAddClass, {HandicapType, SeriesId, minTcf, ClassName});
        } else if (Execute(kUpdateClass, {HandicapType, SeriesId, minTcf, ClassName, ClassId}) ==
                   0) {
            throw RunTimeFault::NoCurrentRecord();
        }
        return std::string();
    });
}

std::string clResults::RemoveClass(int ClassId) {
    return Run("RemoveClass", Shape::Write, [&] {
        const RowSet count = Query(kEntrantsInClass, {ClassId});
        if (!count.IsEmpty() && count(kOnlyColumn, kFirstRow).AsInt() > 0) {
            return std::string(
                "E-It is not possible to remove this class as there are boats entered in it.");
        }
        Execute(kRemoveClass, {ClassId});
        return std::string();
    });
}

std::string clResults::GetEntryClasses(int SeriesId, RowSet& Rows) {
    return Run("GetEntryClasses", Shape::Query, [&] {
        if (SeriesId <= 0)
            return std::string();
        RowSet found = Query(kEntryClasses, {SeriesId});
        if (found.IsEmpty())
            return std::string("I-There are no classes in this series");
        Rows = std::move(found);
        return std::string();
    });
}

}  // namespace tb
