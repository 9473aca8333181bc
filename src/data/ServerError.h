#pragma once

#include <stdexcept>
#include <string>

namespace tb {

// An error the PostgreSQL server (or libpq, reaching it) reported: its SQLSTATE and its own
// text, which the "C-Error" message gives as the description.
class ServerError : public std::runtime_error {
public:
    ServerError(std::string sqlstate, const std::string& text)
        : std::runtime_error(text), sqlstate_(std::move(sqlstate)) {}

    const std::string& sqlstate() const { return sqlstate_; }
    // Another officer's transaction got in the way (a serialization failure, a deadlock, or a
    // row another program added first): the whole operation may simply be run again.
    bool IsConflict() const {
        return sqlstate_ == "40001" || sqlstate_ == "40P01" || sqlstate_ == "23505";
    }

private:
    std::string sqlstate_;
};

// The source named in messages for the server's errors.
inline constexpr const char* kServerSource = "PostgreSQL";

}  // namespace tb
