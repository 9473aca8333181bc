#include "support/ChildProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace tb::test {

namespace {

constexpr uid_t kNobody = 65534;

struct Child {
    pid_t pid = -1;
    int output = -1;
};

Child Fork(const std::function<std::string()>& body, bool unprivileged) {
    int channel[2];
    if (pipe(channel) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0) {
        close(channel[0]);
        if (unprivileged && geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
            _exit(2);
        const std::string Msg = body();
        if (write(channel[1], Msg.data(), Msg.size()) < 0)
            _exit(3);
        _exit(0);
    }
    close(channel[1]);
    return {child, channel[0]};
}

std::string Finish(Child child) {
    if (child.pid < 0)
        return "<no pipe>";
    std::string Msg;
    char buffer[512];
    for (ssize_t n; (n = read(child.output, buffer, sizeof buffer)) > 0;)
        Msg.append(buffer, static_cast<std::size_t>(n));
    close(child.output);
    int status = 0;
    waitpid(child.pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return "<child failed>";
    return Msg;
}

}  // namespace

std::string RunInChild(const std::function<std::string()>& body) {
    return Finish(Fork(body, false));
}

std::future<std::string> StartInChild(const std::function<std::string()>& body) {
    return std::async(std::launch::async, Finish, Fork(body, false));
}

std::string RunUnprivileged(const std::function<std::string()>& body) {
    return Finish(Fork(body, true));
}

std::pair<int, std::string> RunShell(const std::string& command) {
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return {-1, ""};
    std::string output;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, n);
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

}  // namespace tb::test
