#pragma once

#include <functional>
#include <future>
#include <string>
#include <utility>

namespace tb::test {

// Runs body in a forked child and returns the text it returned; "<child failed>" when the child
// did not end normally. A fault the child suffers (a size limit, a dropped right) stays there.
std::string RunInChild(const std::function<std::string()>& body);

// Forks the child at once and lets the caller go on while it runs; the future gives the child's
// text as RunInChild would.
std::future<std::string> StartInChild(const std::function<std::string()>& body);

// The same in a child without root's right to write anywhere, so that file and folder
// permissions mean what they say even when the tests run as root.
std::string RunUnprivileged(const std::function<std::string()>& body);

// Runs a shell command; its exit status (-1 when it did not end normally) and its standard output.
std::pair<int, std::string> RunShell(const std::string& command);

}  // namespace tb::test
