#include "loginitems/PropertyListLoginItemStore.h"

#include <string_view>

#include "base/AtomicFile.h"
#include "base/Leftovers.h"
#include "base/Unicode.h"
#include "loginitems/Files.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

constexpr std::string_view kListKey = "AutoLaunchedApplicationDictionary"; // an array, despite its name
constexpr std::string_view kElementPath = "Path";
constexpr std::string_view kElementHide = "Hide";

/// The path unchanged, or std::nullopt: a replaced character would make it another path.
std::optional<std::u16string> sayablePath(const std::string& path) {
    auto text = toUtf16(path);
    if (toXmlUtf8(text) != path)
        return std::nullopt;
    return text;
}

plist::Value newElement(std::u16string path, bool hide) {
    const auto element = plist::Dictionary::create();
    element.set(kElementHide, hide);
    element.set(kElementPath, std::move(path));
    return element;
}

LoginItem itemOf(const plist::Value& element, std::size_t index) {
    LoginItem item;
    const auto fields = element.dictionary();
    if (const auto* path = fields.value(kElementPath).string())
        item.path = toUtf8(*path);
    item.hide = fields.boolean(kElementHide);
    item.origin = index;
    return item;
}

} // namespace

PropertyListLoginItemStore::PropertyListLoginItemStore(const std::string& preferencesFolder, FileCalls& calls)
    : m_path(preferencesFolder + "/" + std::string(kLoginItemsFile)), m_calls(calls) {}

Status PropertyListLoginItemStore::read(LoginItemAccess access, LoginItems& items) {
    if (const Status status = ensureFile(m_path, m_calls); status != noErr)
        return status;
    auto [file, root] = plist::readPropertyListFile(m_path);
    if (file == plist::FileStatus::NotPropertyList)
        root = plist::Dictionary::create();
    if (access == LoginItemAccess::Add && !root.dictionary().has(kListKey))
        root.dictionary().set(kListKey, plist::Array::create());
    const auto list = root.dictionary().array(kListKey);
    if (!list)
        return resNotFound;

    m_root = root.dictionary();
    items.clear();
    for (const auto& element : list.items())
        items.push_back(itemOf(element, items.size()));
    return noErr;
}

Status PropertyListLoginItemStore::write(const LoginItems& items) {
    const auto old = m_root.array(kListKey);
    const auto list = plist::Array::create();
    for (const auto& item : items) {
        if (!item.changed && item.origin) {
            list.append(old.value(*item.origin));
        } else if (item.path) {
            auto path = sayablePath(*item.path);
            if (!path)
                return memFullErr;
            list.append(newElement(std::move(*path), item.hide));
        }
    }
    m_root.set(kListKey, list);
    const auto text = plist::writeXml(m_root);
    if (!text)
        return memFullErr;
    removeLeftovers(m_path, m_calls);
    return replaceFileAtomically(m_path, *text, m_calls) ? noErr : ioErr;
}

} // namespace quorvi
