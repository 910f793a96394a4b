// Backups: restoring everything from the file, and adding a single profile.
#include "RoundTrip.h"
#include "Scratch.h"
#include "Trees.h"
#include "history/Backup.h"
#include "model/ConfigFileStore.h"
#include "model/Dependants.h"
#include "model/Keys.h"
#include "model/Limits.h"

using namespace quorvi;

namespace {

using fuzz::require;
using plist::Dictionary;

/// Requires that the result is within the limits and has no dangling references, whatever the file held.
void requireWhole(const Dictionary& tree) {
    const auto profiles = tree.array(keys::profiles);
    const auto macros = tree.array(keys::macros);
    require(profiles.size() <= static_cast<std::size_t>(limits::profiles), "there are five profiles at most");
    require(macros.size() <= static_cast<std::size_t>(limits::macros), "there are twelve macros at most");
    for (const auto& macro : macros.items())
        require(macro.dictionary().array(keys::steps).size() <= limits::macroSteps, "a macro has room");
    for (const auto& profile : profiles.items()) {
        require(KyvarValidateProfile(profile.dictionary()), "a profile is whole");
        require(inputsWithoutMacro(profile.dictionary(), macros).empty(), "an input runs what is there");
    }
    fuzz::requireEncoding(tree);
    fuzz::requireSettling(tree);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const plist::Data bytes(data, data + size);
    const ReadBackup read = backupIn(bytes);
    require(static_cast<bool>(read) == (read.fault == BackupFault::none), "a fault gives no backup");
    if (!read || !fuzz::isModest(read.backup.tree))
        return 0;
    const auto tree = fuzz::emptyTree();
    restoreEverything(tree, read.backup);
    const bool isRestored = read.backup.contents == BackupContents::everything;
    require(isRestored == (tree.array(keys::profiles).size() > 0), "only everything is restored");
    requireWhole(tree);
    addProfile(tree, read.backup, {u"Untitled Profile", u"Untitled Macro"});
    requireWhole(tree);
    if (isRestored) {
        const auto again = plist::Dictionary::create();
        require(restoreEverything(again, backupOf(tree)).empty(), "what was taken is taken again");
    }
    return 0;
}
