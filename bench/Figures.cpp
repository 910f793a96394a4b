#include "bench/Figures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <iterator>

namespace quorvi::bench {

Figure figureOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const auto at = [&](std::size_t quarter) { return values[(values.size() - 1) * quarter / 4]; };
    return {.median = at(2), .lower = at(1), .upper = at(3)};
}

std::vector<double> ratios(const std::vector<double>& values, const std::vector<double>& bases) {
    std::vector<double> result;
    std::transform(values.begin(), values.end(), bases.begin(), std::back_inserter(result), std::divides<>());
    return result;
}

Figure pairedRatio(int pairs, const std::function<double()>& measured, const std::function<double()>& base) {
    (void)measured();
    (void)base();
    std::vector<double> values;
    std::vector<double> bases;
    for (int pair = 0; pair < pairs; ++pair) {
        if (pair % 2 == 0)
            values.push_back(measured());
        bases.push_back(base());
        if (pair % 2 != 0)
            values.push_back(measured());
    }
    return figureOf(ratios(values, bases));
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

} // namespace quorvi::bench
