#include "model/ConfigFileStore.h"

#include <algorithm>
#include <initializer_list>

#include "model/ConfigFile.h"
#include "model/Keys.h"
#include "plist/Reader.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;
using plist::Dictionary;

bool hasAll(const Dictionary& dictionary, std::initializer_list<std::string_view> required) {
    return std::all_of(required.begin(), required.end(), [&](auto key) { return dictionary.has(key); });
}

} // namespace

Dictionary storedTree(std::string_view key, const fs::path& path) {
    return plist::readPropertyListFile(path).value.dictionary().dictionary(key);
}

Dictionary KyvarLoadConfigFromFile(
    std::string_view key, std::int32_t minimumVersion, const fs::path& first, const fs::path& second) {
    if (key.empty())
        return {};
    for (const auto* path : {&first, &second}) {
        if (path->empty())
            continue;
        if (auto tree = storedTree(key, *path); KyvarValidateConfig(tree, minimumVersion))
            return tree;
    }
    return {};
}

bool KyvarSaveConfigToFile(std::string_view key, const Dictionary& tree, const fs::path& path,
    FileCalls& calls, Durability durability) {
    return ConfigFile(key, path, calls).save(tree, durability);
}

bool KyvarValidateConfig(const Dictionary& tree, std::int32_t minimumVersion) {
    return tree && tree.integer(keys::version) >= minimumVersion &&
           hasAll(tree, {keys::settings, keys::profiles, keys::macros});
}

bool KyvarValidateProfile(const Dictionary& profile) {
    return hasAll(profile, {keys::ledState, keys::defaultStage, keys::stages, keys::buttons});
}

} // namespace quorvi
