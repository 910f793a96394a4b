// The log-in window's list. The input's first line is the application's path, the rest is the file.
#include <algorithm>

#include "RoundTrip.h"
#include "Scratch.h"
#include "loginitems/LoginItems.h"
#include "loginitems/PathText.h"
#include "loginitems/PropertyListLoginItemStore.h"
#include "plist/Reader.h"

using namespace quorvi;

namespace {

using fuzz::require;

constexpr std::string_view kList = "AutoLaunchedApplicationDictionary";

/// The file's dictionary without the list.
plist::Dictionary others(const plist::Dictionary& top) {
    auto rest = plist::Dictionary::create();
    for (const auto& entry : top.entries())
        if (entry.key != kList)
            rest.append(entry.key, entry.value);
    return rest;
}

void requireAdded(PropertyListLoginItemStore& store, const std::string& path) {
    LoginItems items;
    require(store.read(LoginItemAccess::Add, items) == noErr, "the list is still read");
    require(std::ranges::any_of(
                items, [&](const auto& item) { return item.path && equalIgnoringCase(*item.path, path); }),
        "an added application is on the list");
}

void requireRemoved(PropertyListLoginItemStore& store, const std::string& path, bool wasAdded) {
    std::int16_t removed = -1;
    const Status status = RemoveLoginItem(store, path, &removed);
    require(
        removed >= 0 && removed <= 16 && (status == noErr || removed == 0), "at most sixteen are removed");
    LoginItems items;
    if (!wasAdded || removed == 16 || store.read(LoginItemAccess::Remove, items) != noErr)
        return;
    require(std::ranges::none_of(
                items, [&](const auto& item) { return item.path && item.path->ends_with(path); }),
        "a removed application is no longer on the list");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Bytes bytes(data, size);
    const auto* const end = std::find(data, data + size, '\n');
    const std::string path(data, end);
    const auto file = bytes.subspan(std::min<std::size_t>(path.size() + 1, size));
    const auto before = plist::readPropertyList(file);
    if (path.empty() || !fuzz::isModest(before))
        return 0;

    static const std::string filePath = fuzz::scratch().path("loginWindow.plist");
    fuzz::fill(filePath, file);
    PropertyListLoginItemStore store(fuzz::scratch().path().string());
    bool alreadyRegistered = false;
    const bool replace = size % 2 == 0;
    const Status status = AddLoginItem(store, path, "/Helper.app", true, replace, &alreadyRegistered);
    if (status == noErr)
        requireAdded(store, path);
    else
        require(plist::readPropertyListFile(filePath).value == before || !isUtf8(path) || before.isNothing(),
            "a list that takes nothing stays as it was");
    requireRemoved(store, path, status == noErr);
    if (before.dictionary())
        require(fuzz::hasSurvived(others(before.dictionary()),
                    others(plist::readPropertyListFile(filePath).value.dictionary())),
            "the file's other keys stay");
    return 0;
}
