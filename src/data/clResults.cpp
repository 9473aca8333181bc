#include "data/clResults.h"

#include <filesystem>

#include "app/Globals.h"
#include "data/Connection.h"
#include "data/Conversions.h"
#include "data/Messages.h"
#include "data/RunTimeFault.h"
#include "data/Schema.h"
#include "data/ServerError.h"
#include "data/Transaction.h"

namespace tb {

namespace {

// How often an operation that another officer's got in the way of is run again before the
// conflict becomes its message.
constexpr int kAttempts = 5;

void CheckTallyboardTables(Connection& db) {
    for (const char* table : kTallyboardTables) {
        if (!db.HasTable(table)) {
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

std::string clResults::CheckDataFile(const std::string& DataFile) {
    if (IsServerAddress(DataFile)) {
        if (HoldsPassword(DataFile))
            return "E-The data file " + DataFile +
                   " holds a password, which is never kept: put it in ~/.pgpass instead";
        return {};
    }
    std::error_code ec;
    if (!std::filesystem::exists(DataFile, ec))
        return "E-The data file " + DataFile + " was not found";
    return {};
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
        auto db = OpenConnection(DataFile);
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
        // SQLite reads without a transaction; a server's reads take one, so that an operation
        // sees one state of the data while other officers write.
        if (shape == Shape::Query && Cn->engine() == Engine::SQLite)
            return body();
        return Atomically(
            [&] {
                std::string Msg = body();
                if (Msg.empty() && shape == Shape::Store)
                    Msg = StampModified();
                return Msg;
            },
            shape != Shape::Query);
    } catch (const ServerError& e) {
        // Inside another operation's transaction, the outermost runs the whole again.
        if (e.IsConflict() && Cn->InTransaction())
            throw;
        return Failed(location);
    } catch (...) {
        return Failed(location);
    }
}

std::string clResults::Failed(const char* location) {
    const PendingError pending = DescribeCurrentException();
    // A server that went away is reached again by the next operation.
    if (Cn != nullptr && !Cn->Usable())
        CloseConnection();
    return ErrorText({}, location, &pending);
}

std::string clResults::Atomically(const std::function<std::string()>& body, bool writer) {
    for (int attempt = 1;; ++attempt) {
        Transaction transaction(*Cn, writer);
        try {
            std::string Msg = body();
            transaction.Commit();
            return Msg;
        } catch (const ServerError& e) {
            if (!e.IsConflict() || !transaction.owner() || attempt == kAttempts)
                throw;
        }
    }
}

std::string_view clResults::ForEngine(std::string_view sqlite, std::string_view postgres) const {
    return Cn->engine() == Engine::PostgreSQL ? postgres : sqlite;
}

Statement& clResults::Prepared(std::string_view sql) {
    auto it = statements_.find(std::string(sql));
    if (it == statements_.end()) {
        it = statements_.emplace(std::string(sql), Cn->Prepare(sql)).first;
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
    while (st.Step()) {
        const int columns = st.Columns();
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
    return Cn->LastInsertId();
}

}  // namespace tb
