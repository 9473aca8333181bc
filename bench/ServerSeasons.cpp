// The seasons on a PostgreSQL server: each copied from its file by the command a club uses to
// move onto its server, so that both engines are measured on the same records.

#include <fcntl.h>
#include <libpq-fe.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <stdexcept>

#include "Seasons.h"
#include "app/Globals.h"
#include "data/Connection.h"

extern char** environ;

namespace tb::bench {

namespace {

std::string Server() {
    const char* uri = std::getenv("TALLYBOARD_TEST_POSTGRES");
    return uri == nullptr ? std::string() : uri;
}

void RunOnServer(const std::string& sql) {
    PGconn* connection = PQconnectdb(Server().c_str());
    PGresult* result = PQexec(connection, sql.c_str());
    const bool done = PQresultStatus(result) == PGRES_COMMAND_OK;
    const std::string why = PQerrorMessage(connection);
    PQclear(result);
    PQfinish(connection);
    if (!done)
        throw std::runtime_error(sql + ": " + why);
}

void Copy(const std::string& from, const std::string& to) {
    std::string cli = ProgramFolder() + "/tallyboard-cli";
    std::string command = "copy";
    std::string source = from;
    std::string target = to;
    char* argv[] = {cli.data(), command.data(), source.data(), target.data(), nullptr};
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int status = 0;
    const int spawned = posix_spawn(&pid, argv[0], &quiet, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&quiet);
    if (spawned != 0 || waitpid(pid, &status, 0) < 0 || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0)
        throw std::runtime_error("tallyboard-cli copy " + from + " " + to + " failed");
}

struct OnServerSeason {
    std::string database;
    Season season;
};

std::map<std::string, OnServerSeason>& Made() {
    static std::map<std::string, OnServerSeason> made;
    return made;
}

}  // namespace

bool HaveServer() {
    return !Server().empty();
}

const Season& OnServer(const Season& file) {
    auto& made = Made();
    if (const auto it = made.find(file.name); it != made.end())
        return it->second.season;
    const std::string database =
        "tallyboard_bench_" + std::to_string(::getpid()) + "_" + std::to_string(made.size());
    RunOnServer("CREATE DATABASE " + database);
    Season season{file.name + " on the server", OnSameServer(Server(), database), file.lastRace};
    made[file.name] = {database, season};
    Copy(file.path, season.path);
    return made[file.name].season;
}

void DropServerSeasons() {
    for (const auto& [name, made] : Made())
        RunOnServer("DROP DATABASE IF EXISTS " + made.database + " WITH (FORCE)");
    Made().clear();
}

}  // namespace tb::bench
