#include "data/PgConnection.h"

#include <libpq-fe.h>

#include <cctype>
#include <charconv>
#include <memory>

#include "data/Conversions.h"
#include "data/ServerError.h"

namespace tb {

namespace {

// Type identifiers of the server's built-in types (pg_type), as the answers report them.
constexpr Oid kBool = 16;
constexpr Oid kInt8 = 20;
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kFloat4 = 700;
constexpr Oid kFloat8 = 701;
constexpr Oid kTimestamp = 1114;
constexpr Oid kNumeric = 1700;
// "Let the server infer the type from the context", as for a text or a date.
constexpr Oid kInferred = 0;

// A connection that failed before the server said why in its own words.
constexpr const char* kCannotConnect = "08001";

std::string Trimmed(const char* text) {
    std::string s = text == nullptr ? "" : text;
    while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back())))
        s.pop_back();
    return s;
}

[[noreturn]] void ThrowResultError(const PGresult* result, PGconn* connection) {
    const char* state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    const char* primary = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    throw ServerError(state == nullptr ? kCannotConnect : state,
                      primary != nullptr  ? std::string(primary)
                      : result != nullptr ? Trimmed(PQresultErrorMessage(result))
                                          : Trimmed(PQerrorMessage(connection)));
}

bool Succeeded(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return result != nullptr && (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK);
}

bool IsNameStart(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsNameChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsWordAt(std::string_view sql, std::size_t at, std::string_view word) {
    if (at + word.size() > sql.size() || (at > 0 && IsNameChar(sql[at - 1])))
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(sql[at + i])) != word[i])
            return false;
    }
    return at + word.size() == sql.size() || !IsNameChar(sql[at + word.size()]);
}

// Ends one sort key: a key with its own NULLS stays as it is; otherwise Null goes where SQLite
// puts it, first in ascending order and last in descending.
void EndSortKey(std::string& out, std::size_t keyStart) {
    std::string_view key(out);
    key.remove_prefix(keyStart);
    while (!key.empty() && std::isspace(static_cast<unsigned char>(key.back())))
        key.remove_suffix(1);
    if (key.empty())
        return;
    auto endsWith = [&](std::string_view word) {
        return key.size() >= word.size() && IsWordAt(key, key.size() - word.size(), word);
    };
    if (endsWith("FIRST") || endsWith("LAST"))
        return;
    const bool descending = endsWith("DESC");
    const std::string nulls = descending ? " NULLS LAST" : " NULLS FIRST";
    out.insert(keyStart + key.size(), nulls);
}

}  // namespace

std::string SqliteNullOrder(std::string_view sql) {
    std::string out;
    out.reserve(sql.size() + 32);
    char quote = 0;
    // Parenthesis depth of the text, and the depth of the ORDER BY being read (-1: none).
    int depth = 0;
    std::vector<int> orderDepths;
    std::vector<std::size_t> keyStarts;
    auto endClause = [&] {
        EndSortKey(out, keyStarts.back());
        orderDepths.pop_back();
        keyStarts.pop_back();
    };
    for (std::size_t i = 0; i < sql.size(); ++i) {
        const char c = sql[i];
        if (quote != 0) {
            quote = c == quote ? 0 : quote;
            out += c;
            continue;
        }
        const bool inOrder = !orderDepths.empty() && orderDepths.back() == depth;
        if (c == '\'' || c == '"') {
            quote = c;
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            if (inOrder)
                endClause();
            --depth;
        } else if (inOrder && (c == ',' || c == ';')) {
            EndSortKey(out, keyStarts.back());
            if (c == ';') {
                orderDepths.pop_back();
                keyStarts.pop_back();
            } else {
                keyStarts.back() = out.size() + 1;
            }
        } else if (inOrder && (IsWordAt(sql, i, "LIMIT") || IsWordAt(sql, i, "OFFSET") ||
                               IsWordAt(sql, i, "UNION") || IsWordAt(sql, i, "FOR"))) {
            endClause();
        } else if (IsWordAt(sql, i, "ORDER")) {
            std::size_t by = i + 5;
            while (by < sql.size() && std::isspace(static_cast<unsigned char>(sql[by])))
                ++by;
            if (IsWordAt(sql, by, "BY")) {
                out.append(sql.substr(i, by + 2 - i));
                i = by + 1;
                orderDepths.push_back(depth);
                keyStarts.push_back(out.size());
                continue;
            }
        }
        out += c;
    }
    while (!orderDepths.empty())
        endClause();
    return out;
}

std::string NumberedPlaceholders(std::string_view sql, int& count) {
    std::string out;
    out.reserve(sql.size() + 8);
    std::map<std::string, int, std::less<>> named;
    count = 0;
    char quote = 0;
    for (std::size_t i = 0; i < sql.size(); ++i) {
        const char c = sql[i];
        if (quote != 0) {
            if (c == quote)
                quote = 0;
            out += c;
        } else if (c == '\'' || c == '"') {
            quote = c;
            out += c;
        } else if (c == '?') {
            std::size_t end = i + 1;
            while (end < sql.size() && std::isdigit(static_cast<unsigned char>(sql[end])))
                ++end;
            int number = count + 1;
            if (end > i + 1)
                std::from_chars(sql.data() + i + 1, sql.data() + end, number);
            count = std::max(count, number);
            out += '$' + std::to_string(number);
            i = end - 1;
        } else if (c == ':' && i + 1 < sql.size() && sql[i + 1] == ':') {
            out += "::";
            ++i;
        } else if (c == ':' && i + 1 < sql.size() && IsNameStart(sql[i + 1])) {
            std::size_t end = i + 1;
            while (end < sql.size() && IsNameChar(sql[end]))
                ++end;
            const std::string_view name = sql.substr(i + 1, end - i - 1);
            auto it = named.find(name);
            if (it == named.end())
                it = named.emplace(std::string(name), ++count).first;
            out += '$' + std::to_string(it->second);
            i = end - 1;
        } else {
            out += c;
        }
    }
    return out;
}

PgStatement::PgStatement(PgConnection& connection, std::string_view sql) : connection_(connection) {
    int count = 0;
    sql_ = NumberedPlaceholders(SqliteNullOrder(sql), count);
    parameters_.resize(static_cast<std::size_t>(count));
}

PgStatement::~PgStatement() {
    PQclear(result_);
}

void PgStatement::Restart() {
    PQclear(result_);
    result_ = nullptr;
    row_ = -1;
    rows_ = 0;
    for (Parameter& p : parameters_)
        p = Parameter{};
}

PgStatement::Parameter& PgStatement::At(int index) {
    if (index < 1 || static_cast<std::size_t>(index) > parameters_.size())
        throw ServerError("08P01", "bind message supplies " + std::to_string(index) +
                                       " parameters, but prepared statement requires " +
                                       std::to_string(parameters_.size()));
    return parameters_[static_cast<std::size_t>(index - 1)];
}

void PgStatement::Bind(int index, const Value& value) {
    std::visit(
        [&](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                At(index) = Parameter{};
            } else if constexpr (std::is_same_v<T, bool>) {
                Bind(index, std::int64_t{x ? 1 : 0});
            } else if constexpr (std::is_same_v<T, std::int64_t> || std::is_same_v<T, double>) {
                Bind(index, x);
            } else if constexpr (std::is_same_v<T, std::string>) {
                At(index) = Parameter{'t', x};
            } else {
                At(index) = Parameter{'t', ToStoredDateTime(x)};
            }
        },
        value.storage());
}

void PgStatement::Bind(int index, double value) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    At(index) = Parameter{'r', std::string(buffer, end)};
}

void PgStatement::Bind(int index, std::int64_t value) {
    At(index) = Parameter{'i', std::to_string(value)};
}

void PgStatement::Run() {
    std::string types;
    for (const Parameter& p : parameters_)
        types += p.type;
    PGconn* connection = connection_.handle();
    auto it = prepared_.find(types);
    if (it == prepared_.end()) {
        std::vector<Oid> oids;
        for (char type : types)
            oids.push_back(type == 'i' ? kInt8 : type == 'r' ? kFloat8 : kInferred);
        const std::string name = connection_.NextStatementName();
        connection_.Check(PQprepare(connection, name.c_str(), sql_.c_str(),
                                    static_cast<int>(oids.size()), oids.data()));
        it = prepared_.emplace(types, name).first;
    }
    std::vector<const char*> values;
    for (const Parameter& p : parameters_)
        values.push_back(p.type == 'n' ? nullptr : p.text.c_str());
    PQclear(result_);
    result_ = PQexecPrepared(connection, it->second.c_str(), static_cast<int>(values.size()),
                             values.data(), nullptr, nullptr, 0);
    if (!Succeeded(result_)) {
        PGresult* failed = result_;
        result_ = nullptr;
        std::unique_ptr<PGresult, decltype(&PQclear)> owned(failed, &PQclear);
        ThrowResultError(failed, connection);
    }
    row_ = -1;
    rows_ = PQntuples(result_);
    columns_ = PQnfields(result_);
    kinds_.clear();
    for (int c = 0; c < columns_; ++c) {
        // A Yes/No column read straight from a table is a Boolean; an expression is the
        // number SQLite gives.
        const bool fromTable = PQftable(result_, c) != InvalidOid;
        switch (PQftype(result_, c)) {
            case kInt2:
                kinds_.push_back(fromTable ? ColumnKind::Boolean : ColumnKind::Integer);
                break;
            case kInt4:
            case kInt8:
                kinds_.push_back(ColumnKind::Integer);
                break;
            case kFloat4:
            case kFloat8:
            case kNumeric:
                kinds_.push_back(ColumnKind::Real);
                break;
            case kBool:
                kinds_.push_back(ColumnKind::Truth);
                break;
            case kTimestamp:
                // Also the dates SQLite reads as text (of an aggregate, of a union): the callers
                // read those as dates.
                kinds_.push_back(ColumnKind::Date);
                break;
            default:
                kinds_.push_back(ColumnKind::Text);
        }
    }
}

bool PgStatement::Step() {
    if (result_ == nullptr)
        Run();
    return ++row_ < rows_;
}

int PgStatement::Execute() {
    if (result_ == nullptr)
        Run();
    row_ = rows_;
    const char* changed = PQcmdTuples(result_);
    int count = 0;
    std::from_chars(changed, changed + std::char_traits<char>::length(changed), count);
    return count;
}

Value PgStatement::Read(int column) const {
    if (PQgetisnull(result_, row_, column) != 0)
        return {};
    const char* text = PQgetvalue(result_, row_, column);
    const auto length = static_cast<std::size_t>(PQgetlength(result_, row_, column));
    switch (kinds_[static_cast<std::size_t>(column)]) {
        case ColumnKind::Integer:
        case ColumnKind::Boolean: {
            long long n = 0;
            std::from_chars(text, text + length, n);
            if (kinds_[static_cast<std::size_t>(column)] == ColumnKind::Boolean)
                return Value(n != 0);
            return Value(n);
        }
        case ColumnKind::Real: {
            double d = 0;
            std::from_chars(text, text + length, d);
            return Value(d);
        }
        case ColumnKind::Truth:
            return Value(text[0] == 't' ? 1 : 0);
        case ColumnKind::Date:
            if (auto t = ParseStoredDateTime(std::string_view(text, length)))
                return Value(*t);
            break;
        case ColumnKind::Text:
            break;
    }
    return Value(std::string(text, length));
}

PgConnection::PgConnection(const std::string& uri) {
    // Dates travel as SQLite stores them ("YYYY-MM-DD HH:MM:SS"); text as UTF-8.
    const char* keys[] = {"dbname", "client_encoding", "options", nullptr};
    const char* values[] = {uri.c_str(), "UTF8", "-c DateStyle=ISO,YMD", nullptr};
    connection_ = PQconnectdbParams(keys, values, 1);
    if (PQstatus(connection_) != CONNECTION_OK) {
        const std::string text = Trimmed(PQerrorMessage(connection_));
        PQfinish(connection_);
        connection_ = nullptr;
        throw ServerError(kCannotConnect, text);
    }
    // The server's notices ("relation exists, skipping") are not the user's business.
    PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
}

PgConnection::~PgConnection() {
    PQfinish(connection_);
}

std::unique_ptr<Statement> PgConnection::Prepare(std::string_view sql) {
    return std::make_unique<PgStatement>(*this, sql);
}

void PgConnection::Check(PGresult* result) {
    std::unique_ptr<PGresult, decltype(&PQclear)> owned(result, &PQclear);
    if (!Succeeded(result))
        ThrowResultError(result, connection_);
}

void PgConnection::Exec(const std::string& sql) {
    Check(PQexec(connection_, sql.c_str()));
}

bool PgConnection::InTransaction() const {
    return PQtransactionStatus(connection_) != PQTRANS_IDLE;
}

void PgConnection::Begin(bool writer) {
    // The lock is taken before the first read, which is when the transaction's view of the
    // data is fixed: a writer sees everything the writer before it committed. Waiting is
    // bounded, so a program left holding the lock gives a message rather than a hang.
    Exec(writer ? "BEGIN ISOLATION LEVEL REPEATABLE READ; SET LOCAL lock_timeout = '60s'; "
                  "LOCK TABLE Settings IN SHARE ROW EXCLUSIVE MODE"
                : "BEGIN ISOLATION LEVEL REPEATABLE READ");
}

std::int64_t PgConnection::LastInsertId() {
    std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection_, "SELECT lastval()"),
                                                         &PQclear);
    if (!Succeeded(result.get()))
        ThrowResultError(result.get(), connection_);
    return std::stoll(PQgetvalue(result.get(), 0, 0));
}

long long PgConnection::Count(const char* sql, const char* parameter) {
    const char* values[] = {parameter};
    std::unique_ptr<PGresult, decltype(&PQclear)> result(
        PQexecParams(connection_, sql, parameter == nullptr ? 0 : 1, nullptr, values, nullptr,
                     nullptr, 0),
        &PQclear);
    if (!Succeeded(result.get()))
        ThrowResultError(result.get(), connection_);
    return std::stoll(PQgetvalue(result.get(), 0, 0));
}

bool PgConnection::HasTable(const std::string& name) {
    return Count(
               "SELECT count(*) FROM information_schema.tables WHERE table_schema = "
               "current_schema() AND table_name = lower($1)",
               name.c_str()) > 0;
}

bool PgConnection::HasAnyTable() {
    return Count(
               "SELECT count(*) FROM information_schema.tables WHERE table_schema = "
               "current_schema()") > 0;
}

bool PgConnection::Usable() const {
    return PQstatus(connection_) == CONNECTION_OK;
}

std::string PgConnection::NextStatementName() {
    return "tb" + std::to_string(++statements_);
}

}  // namespace tb
