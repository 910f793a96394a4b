// Tree to record and back, of a full configuration, alone in its file and beside a thousand keys of others.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi::bench {
namespace {

constexpr int kOtherKeys = 1000;

/// The configuration as a program has it: read from a file's text, where the reader has put it in memory.
plist::Dictionary readBeside(int otherKeys) {
    const auto xml = plist::writeXml(settingsFileContent(otherKeys)).value();
    return plist::readPropertyList({reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size()})
        .dictionary();
}

void encode(benchmark::State& state, int otherKeys) {
    const auto file = readBeside(otherKeys);
    const auto tree = file.dictionary(keys::storage);
    const auto record = std::make_unique<ConfigRecord>();
    for ([[maybe_unused]] auto iteration : state) {
        if (!KyvarConfigDictToStruct(tree, record.get()))
            state.SkipWithError("the configuration does not convert");
        benchmark::ClobberMemory();
    }
}

void decode(benchmark::State& state, int otherKeys) {
    const auto file = readBeside(otherKeys);
    const auto record = std::make_unique<ConfigRecord>();
    if (!KyvarConfigDictToStruct(file.dictionary(keys::storage), record.get()))
        state.SkipWithError("the configuration does not convert");
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(KyvarConfigStructToDict(record.get()));
}

/// Whether a repetition ended early. The library said so by a flag before its version 1.8.
template <typename Run>
bool hasError(const Run& run) {
    if constexpr (requires { run.error_occurred; })
        return run.error_occurred;
    else
        return static_cast<bool>(run.skipped);
}

/// Keeps the times of every repetition, and prints nothing.
class Times : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const auto& run : runs) {
            const bool wentWrong = hasError(run);
            failed |= wentWrong;
            if (run.run_type == Run::RT_Iteration && !wentWrong)
                of[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
        }
    }

    std::map<std::string, std::vector<double>> of; ///< microseconds of processor time, in order
    bool failed = false;
};

/// The repetitions of all are mixed, so that a disturbance falls on each alike.
void registerAll(int repetitions) {
    using Function = void (*)(benchmark::State&, int);
    for (const auto& [name, function] :
        {std::pair<std::string, Function>{"encode", encode}, {"decode", decode}})
        for (const int otherKeys : {0, kOtherKeys})
            benchmark::RegisterBenchmark((name + std::to_string(otherKeys)).c_str(), function, otherKeys)
                ->Unit(benchmark::kMicrosecond)
                ->Repetitions(repetitions)
                ->MinTime(repetitions > 3 ? 0.05 : 0.01);
}

int run(bool quick) {
    std::vector<std::string> words{"bench", "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments{words[0].data(), words[1].data()};
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    registerAll(quick ? 3 : 21);
    Times times;
    benchmark::RunSpecifiedBenchmarks(&times);
    if (times.failed)
        return 1;
    const auto others = std::to_string(kOtherKeys);
    for (const auto& [name, goal] : {std::pair<std::string, double>{"encode", 10}, {"decode", 20}}) {
        const auto& alone = times.of[name + "0"];
        printRow(name + " a full configuration", figureOf(alone), "µs", goal);
        printRow(name + " beside " + others + " other keys in the file / alone",
            figureOf(Pairs{times.of[name + others], alone}.ratios()), "x", std::nullopt);
    }
    return 0;
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    return quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
