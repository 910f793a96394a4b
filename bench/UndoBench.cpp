// The cost of undo: the time to record an action, and its memory.
#include <vector>

#include <malloc.h>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "document/UndoStack.h"
#include "model/Keys.h"
#include "plist/DeepCopy.h"
#include "plist/Value.h"

namespace quorvi::bench {
namespace {

constexpr double kGoalOfAction = 100; // KiB
constexpr double kBytesOfKib = 1024;

double kibInUse() {
    const struct mallinfo2 now = mallinfo2();
    return double(now.uordblks + now.hblkhd) / kBytesOfKib;
}

plist::Dictionary buttonOf(const plist::Dictionary& tree, int number) {
    const plist::Dictionary profile = tree.array(keys::profiles).dictionary(std::size_t(number) % 5);
    return profile.dictionary(keys::buttons).dictionary(keys::button(1 + number % 9));
}

/// Changes one assignment.
void assign(const plist::Dictionary& tree, int number) {
    buttonOf(tree, number).set(keys::param2, number);
}

/// Replaces every value with a copy, and every container with a new one.
void replaceEverything(const plist::Dictionary& tree, int number) {
    for (const plist::Array& list : {tree.array(keys::profiles), tree.array(keys::macros)})
        for (std::size_t index = 0; index < list.size(); ++index) {
            const plist::Dictionary item = plist::mutableDeepCopy(list.dictionary(index));
            item.set(keys::name, std::u16string(20, char16_t(u'a' + number % 26)));
            for (const plist::Array& parts : {item.array(keys::steps), item.array(keys::stages)})
                for (std::size_t part = 0; part < parts.size(); ++part)
                    parts.dictionary(part).set(keys::delay, number);
            const plist::Dictionary whole = item.dictionary(keys::buttons);
            for (const auto& button : whole.entries())
                button.value.dictionary().set(keys::param2, number);
            list.replace(index, item);
        }
}

using Change = void (*)(const plist::Dictionary& tree, int number);

/// The memory of an action in KiB, as the mean of a full stack.
double memoryOf(Change change) {
    const plist::Dictionary tree = fullConfiguration();
    UndoStack stack;
    stack.takeOver(tree);
    constexpr int actions = int(UndoStack::kMostActions);
    const double before = kibInUse();
    for (int number = 1; number <= actions; ++number) {
        change(tree, number);
        stack.note(tree, u"Assign Button 4");
    }
    return (kibInUse() - before) / actions;
}

void run(bool quick) {
    const plist::Dictionary tree = fullConfiguration();
    UndoStack stack;
    stack.takeOver(tree);
    std::vector<double> times;
    for (int round = 0, number = 0; round < (quick ? 3 : 51); ++round)
        times.push_back(processorMicrosecondsOf(1, [&] {
            assign(tree, ++number);
            stack.note(tree, u"Assign Button 4");
        }));
    printRow("note an action in a full configuration", figureOf(times), "µs", std::nullopt);
    std::vector<double> ofProfile;
    for (int round = 0, number = 0; round < (quick ? 3 : 51); ++round)
        ofProfile.push_back(processorMicrosecondsOf(1, [&] {
            tree.dictionary(keys::settings).set(keys::pollingRate, ++number);
            stack.noteInProfile(tree, u"Change Polling Rate", 0);
        }));
    printRow("  … that has touched one profile at most", figureOf(ofProfile), "µs", std::nullopt);
    const double small = memoryOf(assign);
    printRow("memory of an action: an assignment", {small, small, small}, "KiB", kGoalOfAction);
    const double large = memoryOf(replaceEverything);
    printRow("memory of an action that replaces everything", {large, large, large}, "KiB", std::nullopt);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    return quorvi::bench::exitCodeOf(
        argv[0], [quick = quorvi::bench::isQuick(argc, argv)] { quorvi::bench::run(quick); });
}
