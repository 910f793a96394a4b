// Saves the settings once, as the panel does, for tests that kill it halfway or make its calls fail:
//     quorvi-save-program HOME RATE [OTHER]
// RATE becomes the polling rate. With OTHER, another program has put that rate into the file in between. Exit
// code 0 when it was saved, 1 when not. Looking for kSaveMark (SaveProgram.h) says that the save begins, and
// again that it is over.

#include "model/SaveProgram.h"

#include <cstdlib>

#include <unistd.h>

#include "base/Leftovers.h"
#include "model/SettingsDocument.h"
#include "model/Trees.h"

namespace {

using quorvi::plist::Dictionary;

Dictionary settings(const char* rate) {
    const auto tree = quorvi::test::tree();
    tree.dictionary("settings").set("pollingrate", std::atoi(rate));
    return tree;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    auto file = quorvi::userSettingsFile(argv[1]);
    quorvi::removeLeftovers(file.path());
    (void)quorvi::loadSettings(file, {});
    if (argc > 3 && !quorvi::saveSettings(settings(argv[3]), file.path()))
        return 2;
    const auto tree = settings(argv[2]);
    (void)::access(quorvi::test::kSaveMark, F_OK);
    const bool saved = quorvi::saveSettings(tree, file);
    (void)::access(quorvi::test::kSaveMark, F_OK);
    return saved ? 0 : 1;
}
