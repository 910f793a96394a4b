#include "model/ItemFile.h"

#include "model/AtomicFile.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Leftovers.h"
#include "model/NamingRule.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

plist::Dictionary readItemFile(const std::filesystem::path& path) {
    return plist::readPropertyListFile(path).value.dictionary();
}

} // namespace

plist::Dictionary readProfileFile(const std::filesystem::path& path) {
    const plist::Dictionary profile = readItemFile(path);
    return KyvarValidateProfile(profile) ? profile : plist::Dictionary();
}

plist::Dictionary readMacroFile(const std::filesystem::path& path) {
    const plist::Dictionary macro = readItemFile(path);
    return macro.has(keys::name) && macro.has(keys::steps) ? macro : plist::Dictionary();
}

bool writeItemFile(const plist::Dictionary& item, const std::filesystem::path& path) {
    removeLeftovers(path); // an export leaves them wherever the user exports to
    const auto text = plist::writeXml(item);
    return text && replaceFileAtomically(path, *text);
}

void appendItem(const plist::Array& array, const plist::Dictionary& item, const std::u16string& defaultName) {
    const std::u16string* name = item.value(keys::name).string();
    std::u16string unique =
        makeNameUnique(name ? *name : std::u16string(), defaultName, array, keys::name, -1);
    if (!name || *name != unique)
        item.set(keys::name, std::move(unique));
    array.append(item);
}

} // namespace quorvi
