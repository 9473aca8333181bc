#include <filesystem>
#include <string>
#include <vector>

#include "data/Connection.h"
#include "data/Messages.h"
#include "data/Schema.h"
#include "data/Transaction.h"
#include "data/clResults.h"

namespace tb {

namespace {

// The rows of one table, read whole from the source before anything is written to the target.
struct TableRows {
    const char* table;
    RowSet rows;
};

// Tables a new database fills with its reference rows; any row in another table, or a change
// stamp, is a club's data.
constexpr const char* kReferenceTables[] = {"HandicapType", "Scoring", "Points",  "DiscardSystem",
                                            "Discards",     "Status",  "Settings"};
// Rows written by one statement: a round trip per row would make a season's copy to a server
// take many seconds.
constexpr std::size_t kRowsPerInsert = 200;

bool IsReferenceTable(const std::string& table) {
    for (const char* reference : kReferenceTables) {
        if (table == reference)
            return true;
    }
    return false;
}

long long CountRows(Connection& db, const std::string& sql) {
    auto st = db.Prepare(sql);
    return st->Step() ? st->Read(0).AsInt() : 0;
}

// Whether the database holds anything a new one does not.
bool HoldsData(Connection& db) {
    for (const char* table : kTallyboardTables) {
        if (!IsReferenceTable(table) &&
            CountRows(db, std::string("SELECT count(*) FROM ") + table) > 0)
            return true;
    }
    return CountRows(db, "SELECT count(*) FROM Settings WHERE Parameter = 'LastModified'") > 0;
}

void WriteTable(Connection& db, const TableRows& table) {
    const RowSet& rows = table.rows;
    db.Exec(std::string("DELETE FROM ") + table.table);
    if (rows.IsEmpty())
        return;
    const std::size_t columns = rows.Columns();
    std::string oneRow = "(";
    for (std::size_t c = 0; c < columns; ++c)
        oneRow += c == 0 ? "?" : ", ?";
    oneRow += ")";
    for (std::size_t first = 0; first < rows.Rows(); first += kRowsPerInsert) {
        const std::size_t count = std::min(kRowsPerInsert, rows.Rows() - first);
        std::string sql = std::string("INSERT INTO ") + table.table + " VALUES ";
        for (std::size_t r = 0; r < count; ++r)
            sql += (r == 0 ? "" : ", ") + oneRow;
        auto st = db.Prepare(sql);
        int index = 1;
        for (std::size_t r = first; r < first + count; ++r) {
            for (std::size_t c = 0; c < columns; ++c)
                st->Bind(index++, rows(c, r));
        }
        st->Execute();
    }
}

}  // namespace

std::string clResults::CopyDatabase(const std::string& Target) {
    std::vector<TableRows> tables;
    std::string Msg = Run("CopyDatabase", Shape::Write, [&] {
        for (const char* table : kTallyboardTables)
            tables.push_back({table, Query(std::string("SELECT * FROM ") + table)});
        return std::string();
    });
    if (!Msg.empty())
        return Msg;

    const bool newFile = !IsServerAddress(Target);
    if (newFile) {
        Msg = CreateDatabase(Target);
        if (!Msg.empty())
            return Msg;
    }
    try {
        auto db = OpenConnection(Target);
        Transaction transaction(*db, false);
        if (!db->HasAnyTable())
            MakeSchema(*db);
        else if (!newFile && HoldsData(*db))
            return "E-The database " + Target +
                   " already holds a club's data; a copy is only written into an empty or new "
                   "database";
        for (const TableRows& table : tables)
            WriteTable(*db, table);
        ResetIdentities(*db);
        transaction.Commit();
        return {};
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        if (newFile) {
            std::error_code ec;
            std::filesystem::remove(Target, ec);
            std::filesystem::remove(Target + "-wal", ec);
            std::filesystem::remove(Target + "-shm", ec);
        }
        return ErrorText({}, "CopyDatabase", &pending);
    }
}

}  // namespace tb
