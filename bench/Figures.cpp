#include "bench/Figures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <exception>
#include <iterator>

namespace quorvi::bench {

namespace {

template <typename Operation>
std::vector<double> combined(
    const std::vector<double>& first, const std::vector<double>& second, Operation operation) {
    std::vector<double> result;
    std::transform(first.begin(), first.end(), second.begin(), std::back_inserter(result), operation);
    return result;
}

} // namespace

Figure figureOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const auto at = [&](std::size_t quarter) { return values[(values.size() - 1) * quarter / 4]; };
    return {.median = at(2), .lower = at(1), .upper = at(3)};
}

std::vector<double> Pairs::ratios() const {
    return combined(measured, base, std::divides<>());
}

std::vector<double> Pairs::differences() const {
    return combined(measured, base, std::minus<>());
}

Pairs runPairs(int pairs, const std::function<double()>& measured, const std::function<double()>& base) {
    (void)measured();
    (void)base();
    Pairs result;
    for (int pair = 0; pair < pairs; ++pair) {
        if (pair % 2 == 0)
            result.measured.push_back(measured());
        result.base.push_back(base());
        if (pair % 2 != 0)
            result.measured.push_back(measured());
    }
    return result;
}

double processorMicrosecondsOf(int calls, const std::function<void()>& call) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double start = now();
    for (int i = 0; i < calls; ++i)
        call();
    return now() - start;
}

void printRow(
    std::string_view what, const Figure& figure, std::string_view unit, std::optional<double> goal) {
    std::printf("%.*s\t%.2f\t%.2f\t%.2f\t%.*s\t", static_cast<int>(what.size()), what.data(), figure.median,
        figure.lower, figure.upper, static_cast<int>(unit.size()), unit.data());
    if (goal)
        std::printf("%.2f", *goal);
    std::puts("");
    std::fflush(stdout);
}

bool isQuick(int argc, char** argv) {
    return std::any_of(
        argv + 1, argv + argc, [](const char* argument) { return std::string_view(argument) == "--quick"; });
}

int exitCodeOf(const char* program, const std::function<void()>& benchmark) {
    try {
        benchmark();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", program, error.what());
        return 1;
    }
    return 0;
}

} // namespace quorvi::bench
