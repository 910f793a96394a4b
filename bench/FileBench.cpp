// Loading and writing out a settings file, compared with libplist alone for the same bytes.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "plist/Node.h"
#include "plist/Writer.h"
#include "support/TemporaryFolder.h"

namespace quorvi::bench {
namespace {

using plist::Node;

/// Reads the file with as few calls as possible.
std::string readWhole(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    fstat(file, &status);
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    const ssize_t count = read(file, bytes.data(), bytes.size());
    close(file);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

Node parse(const std::string& bytes) {
    plist_t node = nullptr;
    plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
    return Node(node);
}

void require(bool condition) {
    if (!condition) {
        std::fputs("The benchmark's settings file is not what it should be.\n", stderr);
        std::exit(1);
    }
}

constexpr int kCalls = 4; // milliseconds, far above what the clock and a call by pointer cost

Figure ratio(int pairs, const std::function<void()>& ours, const std::function<void()>& theirs) {
    const auto time = [](const auto& call) { return processorMicrosecondsOf(kCalls, call); };
    return figureOf(runPairs(
        pairs, [&] { return time(ours); },
        [&] {
            return time(theirs);
        }).ratios());
}

void load(int pairs, const std::string& path) {
    const auto ours = [&] {
        require(!!KyvarLoadConfigFromFile(keys::storage, limits::minimumVersion, path, {}));
    };
    const auto theirs = [&] { require(!!parse(readWhole(path))); };
    printRow(
        "load a full settings file / libplist reads and parses it", ratio(pairs, ours, theirs), "x", 1.5);
}

void write(int pairs, const plist::Dictionary& content, const std::string& expected) {
    const Node tree = parse(expected);
    const auto ours = [&] { require(plist::writeXml(content)->size() == expected.size()); };
    const auto theirs = [&] {
        char* text = nullptr;
        std::uint32_t length = 0;
        plist_to_xml(tree.get(), &text, &length);
        const plist::Allocated<char> owner(text);
        require(length == expected.size());
    };
    printRow("write a full configuration as XML / libplist writes its own tree", ratio(pairs, ours, theirs),
        "x", 1.5);
}

void run(bool quick) {
    const int pairs = quick ? 5 : 101;
    const auto content = settingsFileContent();
    const auto xml = plist::writeXml(content).value();
    const test::TemporaryFolder folder;
    const auto path = folder.write("settings.plist", xml);
    load(pairs, path);
    write(pairs, content, xml);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
