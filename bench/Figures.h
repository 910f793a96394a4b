// Shared by all benchmarks: pairs, medians, and the table's rows.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace quorvi::bench {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

/// The middle of several measurements, and the middles of their lower and upper halves.
struct Figure {
    double median = 0;
    double lower = 0;
    double upper = 0;
};

/// Needs at least one value.
[[nodiscard]] Figure figureOf(std::vector<double> values);

/// The times of two alternatives measured in pairs; both lists have the same length.
struct Pairs {
    std::vector<double> measured;
    std::vector<double> base;

    [[nodiscard]] std::vector<double> ratios() const;
    [[nodiscard]] std::vector<double> differences() const;
};

/// Calls both in turn, first once unrecorded and then that many times. The order changes from pair to pair,
/// so that neither always comes second.
[[nodiscard]] Pairs runPairs(
    int pairs, const std::function<double()>& measured, const std::function<double()>& base);

/// The microseconds of processor time that the calls take together, on this thread: for pure computation, so
/// that other programs on the machine do not count.
[[nodiscard]] double processorMicrosecondsOf(int calls, const std::function<void()>& call);

/// Prints one row for bench/run: tab-separated, the goal may be empty. A figure not above its goal meets it.
void printRow(std::string_view what, const Figure& figure, std::string_view unit, std::optional<double> goal);

/// Whether --quick is given: few pairs, only to check that everything runs.
[[nodiscard]] bool isQuick(int argc, char** argv);

/// The exit code of a benchmark that may fail: 1, with the program's name and the reason on the standard
/// error stream, if it throws.
[[nodiscard]] int exitCodeOf(const char* program, const std::function<void()>& benchmark);

} // namespace quorvi::bench
