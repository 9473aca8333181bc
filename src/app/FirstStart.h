#pragma once

#include <string>

namespace tb {

// What a fresh account lacks on its first start. Each returns a message (empty on success).

// A new, ready-to-use database at path, its folder made first.
std::string CreateFirstDatabase(const std::string& path);

// Makes the report folder when it is missing and copies into it each shipped style sheet
// (program folder + "/Reports/") it lacks; sheets already there, perhaps the club's own
// changes, are kept.
std::string ProvideStyleSheets(const std::string& reportFolder);

}  // namespace tb
