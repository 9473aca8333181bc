#include "data/Statement.h"

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

Statement::Statement(sqlite3* db, std::string_view sql) : db_(db) {
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

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

void Statement::Restart() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

void Statement::Bind(int index, const Value& value) {
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

void Statement::Bind(int index, double value) {
    Check(db_, sqlite3_bind_double(statement_, index, value));
}

void Statement::Bind(int index, std::int64_t value) {
    Check(db_, sqlite3_bind_int64(statement_, index, static_cast<sqlite3_int64>(value)));
}

bool Statement::Step() {
    const int rc = sqlite3_step(statement_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    throw SQLite::Exception(db_, rc);
}

int Statement::Execute() {
    while (Step()) {
    }
    return sqlite3_changes(db_);
}

Value Statement::Read(int column) const {
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

}  // namespace tb
