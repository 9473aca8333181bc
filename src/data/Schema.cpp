#include "data/Schema.h"

#include <SQLiteCpp/Database.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "data/Messages.h"

namespace tb {

extern const char* const kSchemaSql;

std::string CreateDatabase(const std::string& path) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const std::string exists =
        "E-The file " + path + " already exists; a new database is never written over it";
    if (fs::exists(fs::symlink_status(path, ec)))
        return exists;
    // Built under a temporary name and moved into place, so that a failure never leaves a
    // half-made database where the program would open it.
    const std::string building = path + ".new-" + std::to_string(::getpid());
    try {
        {
            SQLite::Database db(building, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            // Other programs read the file while the race officer works: write-ahead logging.
            db.exec("PRAGMA journal_mode = WAL");
            db.exec("BEGIN");
            db.exec(kSchemaSql);
            db.exec("COMMIT");
        }
        if (::link(building.c_str(), path.c_str()) != 0) {
            const int error = errno;
            fs::remove(building, ec);
            if (error == EEXIST)
                return exists;
            return "E-Cannot create " + path + ": " + std::strerror(error);
        }
        fs::remove(building, ec);
        return {};
    } catch (...) {
        fs::remove(building, ec);
        fs::remove(building + "-wal", ec);
        fs::remove(building + "-shm", ec);
        const PendingError pending = DescribeCurrentException();
        return ErrorText({}, "CreateDatabase", &pending);
    }
}

}  // namespace tb
