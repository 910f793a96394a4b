// Saves settings with a dated copy of the earlier ones before, as the panel does, for tests that kill it
// halfway or make its calls fail:
//     quorvi-copy-program HOME RATE
// RATE becomes the polling rate. Exit code 0 when both were done, 1 when there is no copy, 2 when nothing was
// saved. Looking for kSaveMark (SaveProgram.h) says that it begins, and again that it is over.

#include <cstdlib>

#include <unistd.h>

#include "history/Histories.h"
#include "model/SaveProgram.h"
#include "model/SettingsDocument.h"

int main(int argc, char** argv) {
    using namespace quorvi;
    if (argc < 3)
        return 2;
    const std::filesystem::path home = argv[1];
    auto file = userSettingsFile(home);
    const auto tree = loadSettings(file, {});
    tree.dictionary("settings").set("pollingrate", std::atoi(argv[2]));
    const auto before = getDefaultSettings(file.path());
    (void)::access(test::kSaveMark, F_OK);
    const int error =
        History(home / "history").keep(before, CopyReason::firstChangeOfDay, test::noon(2026, 11, 22));
    const bool saved = saveSettings(tree, file);
    (void)::access(test::kSaveMark, F_OK);
    return !saved ? 2 : error != 0 ? 1 : 0;
}
