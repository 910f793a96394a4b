#include "SettingsFile.h"

#include <vector>

#include "Require.h"
#include "RoundTrip.h"
#include "Trees.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "plist/Reader.h"

namespace quorvi::fuzz {

namespace {

using plist::Dictionary;

/// The commands of every assignment.
std::vector<std::int32_t> commandsOf(const Dictionary& tree) {
    std::vector<std::int32_t> commands;
    for (const auto& profile : tree.array(keys::profiles).items())
        for (const auto& button : profile.dictionary().dictionary(keys::buttons).entries())
            commands.push_back(button.value.dictionary().integer(keys::command));
    return commands;
}

void repair(const Dictionary& tree) {
    cleanUpSettings(tree);
    const auto repaired = commandsOf(tree);
    cleanUpSettings(tree);
    require(commandsOf(tree) == repaired, "a repaired tree needs no more repair");
}

Dictionary withTree(const Dictionary& top, const Dictionary& tree) {
    auto changed = Dictionary::create();
    for (const auto& entry : top.entries())
        changed.append(entry.key, entry.value);
    changed.set(keys::storage, tree);
    return changed;
}

} // namespace

void requireSettingsFile(const std::string& path, const Dictionary& top) {
    auto tree = loadSettings(path, {});
    require(bool(tree) == KyvarValidateConfig(top.dictionary(keys::storage), limits::minimumVersion),
        "a tree is loaded when it is valid, and only then");
    if (!tree)
        tree = emptyTree();
    repair(tree);
    require(saveSettings(tree, path, systemFileCalls(), Durability::later), "a modest tree is saved");
    const auto saved = plist::readPropertyListFile(path).value;
    require(hasSurvived(withTree(top, tree), saved),
        "the tree and every other key of the file are in the saved file");
    require(KyvarValidateConfig(saved.dictionary().dictionary(keys::storage), limits::minimumVersion),
        "what was saved is valid");
}

} // namespace quorvi::fuzz
