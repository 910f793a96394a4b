// Real programs as children of a test.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace quorvi::test {

/// The longest wait before a test gives up. Successful tests never wait that long.
constexpr std::chrono::seconds kPatience{20};

/// A running program. It is killed with this object, and when the test itself dies.
class ChildProcess {
  public:
    /// Starts the program with the arguments and the test's environment, with "NAME=value" set and "NAME"
    /// removed. Its standard output and error are pipes.
    explicit ChildProcess(std::vector<std::string> command, const std::vector<std::string>& environment = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }
    [[nodiscard]] bool isRunning();
    void signal(int number) const;
    /// Waits for the end and returns the exit code, 128 + the signal if one ended it, or std::nullopt if it
    /// did not end in time.
    [[nodiscard]] std::optional<int> wait(std::chrono::milliseconds patience = kPatience);
    /// Ends it by force and waits until it is gone.
    void kill();

    /// Waits for the next line of its standard output, without the line's end; std::nullopt at the end.
    [[nodiscard]] std::optional<std::string> readLine();
    /// The rest of its output. Waits for the end of the program.
    [[nodiscard]] std::string readOutput();
    [[nodiscard]] std::string readError();

  private:
    pid_t m_pid = -1;
    int m_output = -1;
    int m_error = -1;
    std::optional<int> m_status;
};

struct ProgramResult {
    std::optional<int> exitCode; ///< std::nullopt if it did not end in time
    std::string output;
    std::string error;
    std::chrono::milliseconds duration{};
};

/// Runs the program to its end.
[[nodiscard]] ProgramResult runProgram(
    std::vector<std::string> command, const std::vector<std::string>& environment = {});

} // namespace quorvi::test
