#include "data/SqliteConnection.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <cstring>
#include <string>

#include "data/Conversions.h"

namespace tb {

namespace {

void Check(sqlite3* db, int rc) {
    if (rc != SQLITE_OK)
        throw SQLite::Exception(db, rc);
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* db, std::string_view sql) : db_(db) {
    Check(db_, sqlite3_prepare_v3(db_, sql.data(), static_cast<int>(sql.size()),
                                  SQLITE_PREPARE_PERSISTENT, &statement_, nullptr));
    columns_ = sqlite3_column_count(statement_);
    for (int c = 0; c < columns_; ++c) {
        // An expression column has no declared type.
        const char* declared = sqlite3_column_decltype(statement_, c);
        if (declared != nullptr && std::strcmp(declared, "DATETIME") == 0)
            kinds_.push_back(ColumnKind::Date);
        else if (declared != nullptr && std::strcmp(declared, "BOOLEAN") == 0)
            kinds_.push_back(ColumnKind::Boolean);
        else
            kinds_.push_back(ColumnKind::Plain);
    }
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(statement_);
}

void SqliteStatement::Restart() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

void SqliteStatement::Bind(int index, const Value& value) {
    std::visit(
        [&](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                Check(db_, sqlite3_bind_null(statement_, index));
            } else if constexpr (std::is_same_v<T, bool>) {
                Check(db_, sqlite3_bind_int(statement_, index, x ? 1 : 0));
            } else if constexpr (std::is_same_v<T, std::int64_t>) {
                Bind(index, x);
            } else if constexpr (std::is_same_v<T, double>) {
                Bind(index, x);
            } else if constexpr (std::is_same_v<T, std::string>) {
                Check(db_, sqlite3_bind_text(statement_, index, x.data(),
                                             static_cast<int>(x.size()), SQLITE_TRANSIENT));
            } else {
                const std::string stored = ToStoredDateTime(x);
                Check(db_, sqlite3_bind_text(statement_, index, stored.data(),
                                             static_cast<int>(stored.size()), SQLITE_TRANSIENT));
            }
        },
        value.storage());
}

void SqliteStatement::Bind(int index, double value) {
    Check(db_, sqlite3_bind_double(statement_, index, value));
}

void SqliteStatement::Bind(int index, std::int64_t value) {
    Check(db_, sqlite3_bind_int64(statement_, index, static_cast<sqlite3_int64>(value)));
}

bool SqliteStatement::Step() {
    const int rc = sqlite3_step(statement_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    throw SQLite::Exception(db_, rc);
}

int SqliteStatement::Execute() {
    while (Step()) {
    }
    return sqlite3_changes(db_);
}

Value SqliteStatement::Read(int column) const {
    const ColumnKind kind = kinds_[static_cast<std::size_t>(column)];
    switch (sqlite3_column_type(statement_, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER: {
            const sqlite3_int64 n = sqlite3_column_int64(statement_, column);
            if (kind == ColumnKind::Boolean)
                return Value(n != 0);
            return Value(static_cast<long long>(n));
        }
        case SQLITE_FLOAT:
            return Value(sqlite3_column_double(statement_, column));
        default: {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
            std::string s(text == nullptr ? "" : text,
                          static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
            if (kind == ColumnKind::Date) {
                if (auto t = ParseStoredDateTime(s))
                    return Value(*t);
            }
            return Value(std::move(s));
        }
    }
}

namespace {

// One thread uses a connection at a time, so SQLite need not lock it on every call (reading a
// row set column by column made that a twentieth of a report's time).
const int kOpenFlags = SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX;
// Another program writing the file makes a writer wait this long before giving up.
constexpr int kBusyTimeoutMs = 5000;

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, bool create)
    : db_(path, create ? kOpenFlags | SQLite::OPEN_CREATE : kOpenFlags, kBusyTimeoutMs) {}

std::unique_ptr<Statement> SqliteConnection::Prepare(std::string_view sql) {
    return std::make_unique<SqliteStatement>(db_.getHandle(), sql);
}

void SqliteConnection::Exec(const std::string& sql) {
    db_.exec(sql);
}

bool SqliteConnection::InTransaction() const {
    return sqlite3_get_autocommit(db_.getHandle()) == 0;
}

void SqliteConnection::Begin(bool writer) {
    db_.exec(writer ? "BEGIN IMMEDIATE" : "BEGIN");
}

std::int64_t SqliteConnection::LastInsertId() {
    return db_.getLastInsertRowid();
}

bool SqliteConnection::HasTable(const std::string& name) {
    SqliteStatement st(db_.getHandle(),
                       "SELECT count(*) FROM sqlite_master WHERE type='table' AND name=?");
    st.Bind(1, Value(name));
    return st.Step() && st.Read(0).AsInt() > 0;
}

bool SqliteConnection::HasAnyTable() {
    SqliteStatement st(db_.getHandle(), "SELECT count(*) FROM sqlite_master WHERE type='table'");
    return st.Step() && st.Read(0).AsInt() > 0;
}

}  // namespace tb
