#include "data/clResults.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include "app/Globals.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/RunTimeFault.h"
#include "data/Transaction.h"

namespace tb {

namespace {

constexpr int kBusyTimeoutMs = 5000;

// The tables every Tallyboard database has; a file without them is not one of ours.
constexpr const char* kTables[] = {
    "People",  "BoatType",      "Boat",     "HandicapType", "Handicap", "Scoring",
    "Points",  "DiscardSystem", "Discards", "Series",       "Schedule", "Class",
    "Entrant", "EntryList",     "Start",    "Results",      "Status",   "Settings"};

void CheckTallyboardTables(SQLite::Database& db) {
    SQLite::Statement st(db,
                         "SELECT count(*) FROM sqlite_master WHERE type='table' AND name=:table");
    for (const char* table : kTables) {
        st.reset();
        st.bind(":table", table);
        st.executeStep();
        if (st.getColumn(0).getInt() == 0) {
            throw RunTimeFault(
                3078, std::string("The database engine cannot find the input table '") + table +
                          "'. The file is not a Tallyboard database.");
        }
    }
}

}  // namespace

clResults::clResults() = default;
clResults::~clResults() = default;

void clResults::CloseConnection() {
    statements_.clear();
    Cn.reset();
    Connected_ = false;
}

std::string clResults::SqlQuote(const std::string& Text) {
    std::string quoted;
    quoted.reserve(Text.size());
    for (char c : Text) {
        quoted += c;
        if (c == '\'')
            quoted += '\'';
    }
    return quoted;
}

std::string clResults::ConnectDb() {
    if (Connected_)
        return {};
    try {
        // One thread uses a connection at a time, so SQLite need not lock it on every call
        // (reading a row set column by column made that a twentieth of a report's time).
        auto db = std::make_unique<SQLite::Database>(
            DataFile, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, kBusyTimeoutMs);
        CheckTallyboardTables(*db);
        Cn = std::move(db);
        Connected_ = true;
        return {};
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "ConnectDb", &pending);
    }
}

std::string clResults::Run(const char* location, Shape shape,
                           const std::function<std::string()>& body) {
    std::string Msg = ConnectDb();
    if (!Msg.empty()) {
        if (shape == Shape::Remove)
            ShowMessage(Msg);
        return Msg;
    }
    try {
        if (shape == Shape::Query)
            return body();
        Transaction transaction(Cn->getHandle());
        Msg = body();
        if (Msg.empty() && shape == Shape::Store)
            Msg = StampModified();
        transaction.Commit();
    } catch (...) {
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, location, &pending);
    }
    return Msg;
}

Statement& clResults::Prepared(std::string_view sql) {
    auto it = statements_.find(std::string(sql));
    if (it == statements_.end()) {
        auto st = std::make_unique<Statement>(Cn->getHandle(), sql);
        it = statements_.emplace(std::string(sql), std::move(st)).first;
    }
    Statement& st = *it->second;
    st.Restart();
    return st;
}

RowSet clResults::Query(std::string_view sql, const std::vector<Value>& params) {
    Statement& st = Prepared(sql);
    int index = 1;
    for (const Value& p : params)
        st.Bind(index++, p);
    RowSet rows;
    const int columns = st.Columns();
    while (st.Step()) {
        Value* row = rows.AddNullRow(static_cast<std::size_t>(columns));
        for (int c = 0; c < columns; ++c)
            row[c] = st.Read(c);
    }
    st.Restart();
    return rows;
}

int clResults::Execute(std::string_view sql, const std::vector<Value>& params) {
    Statement& st = Prepared(sql);
    int index = 1;
    for (const Value& p : params)
        st.Bind(index++, p);
    const int changes = st.Execute();
    st.Restart();
    return changes;
}

std::int64_t clResults::LastInsertId() const {
    return Cn->getLastInsertRowid();
}

}  // namespace tb
