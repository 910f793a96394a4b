#include "support/ChildProcess.h"

#include <algorithm>
#include <csignal>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/PatientProgram.h"

namespace quorvi::test {

using std::chrono::milliseconds;

namespace {

std::vector<char*> pointers(std::vector<std::string>& strings) {
    std::vector<char*> result;
    result.reserve(strings.size() + 1);
    for (auto& string : strings)
        result.push_back(string.data());
    result.push_back(nullptr);
    return result;
}

std::vector<std::string> environmentWith(const std::vector<std::string>& changes) {
    const auto nameOf = [](std::string_view variable) { return variable.substr(0, variable.find('=')); };
    std::vector<std::string> result;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(result),
        [](const std::string& change) { return change.find('=') != std::string::npos; });
    // For duplicate names some programs use the first, others the last.
    for (char** entry = environ; *entry; ++entry)
        if (std::none_of(changes.begin(), changes.end(),
                [&](const std::string& change) { return nameOf(change) == nameOf(*entry); }))
            result.emplace_back(*entry);
    return result;
}

std::pair<int, int> makePipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    return {ends[0], ends[1]};
}

std::string readAll(int fd) {
    std::string text;
    char block[4096];
    for (ssize_t count = 0; (count = read(fd, block, sizeof block)) > 0;)
        text.append(block, static_cast<std::size_t>(count));
    return text;
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> command, const std::vector<std::string>& environment) {
    auto variables = environmentWith(environment);
    auto arguments = pointers(command);
    auto environmentPointers = pointers(variables);
    const auto [outputRead, outputWrite] = makePipe();
    const auto [errorRead, errorWrite] = makePipe();
    m_output = outputRead;
    m_error = errorRead;
    m_pid = fork();
    if (m_pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(outputWrite, STDOUT_FILENO);
        dup2(errorWrite, STDERR_FILENO);
        execvpe(arguments[0], arguments.data(), environmentPointers.data());
        _exit(127);
    }
    close(outputWrite);
    close(errorWrite);
}

ChildProcess::~ChildProcess() {
    kill();
    close(m_output);
    close(m_error);
}

bool ChildProcess::isRunning() {
    return !wait(milliseconds::zero());
}

void ChildProcess::signal(int number) const {
    if (!m_status)
        ::kill(m_pid, number);
}

std::optional<int> ChildProcess::wait(milliseconds patience) {
    if (m_status)
        return m_status;
    const int handle = static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0));
    pollfd ended{handle, POLLIN, 0};
    poll(&ended, 1, static_cast<int>(patience.count()));
    close(handle);
    int status = 0;
    if (waitpid(m_pid, &status, WNOHANG) == m_pid)
        m_status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return m_status;
}

void ChildProcess::kill() {
    signal(SIGKILL);
    (void)wait();
}

std::optional<std::string> ChildProcess::readLine() {
    std::string line;
    char c = 0;
    while (read(m_output, &c, 1) == 1) {
        if (c == '\n')
            return line;
        line.push_back(c);
    }
    return std::nullopt;
}

std::string ChildProcess::readOutput() {
    return readAll(m_output);
}

std::string ChildProcess::readError() {
    return readAll(m_error);
}

ProgramResult runProgram(std::vector<std::string> command, const std::vector<std::string>& environment) {
    return runProgram(std::move(command), environment, kPatience);
}

ProgramResult runProgram(
    std::vector<std::string> command, const std::vector<std::string>& environment, milliseconds patience) {
    const auto start = std::chrono::steady_clock::now();
    ChildProcess child(std::move(command), environment);
    ProgramResult result;
    // Both pipes at once, so that a program that fills one of them cannot block.
    std::thread errorReader([&] { result.error = child.readError(); });
    std::thread watchdog([&] {
        if (!child.wait(patience))
            child.kill();
    });
    result.output = child.readOutput();
    errorReader.join();
    watchdog.join();
    result.exitCode = child.wait(milliseconds::zero());
    result.duration = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
    return result;
}

} // namespace quorvi::test
