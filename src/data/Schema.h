#pragma once

#include <string>

namespace tb {

// Makes a new, ready-to-use database at path: every table, the status codes, one scoring system
// and one discard system. Refuses to touch an existing file. Returns a message (empty on
// success).
std::string CreateDatabase(const std::string& path);

}  // namespace tb
