// The removals that name a user's list, not a store.
#include <filesystem>

#include "loginitems/AutostartLoginItemStore.h"
#include "loginitems/LoginItems.h"
#include "loginitems/PropertyListLoginItemStore.h"
#include "loginitems/UserFolders.h"

namespace quorvi {

namespace {

constexpr std::size_t kHomePathLimit = 1000; // bytes

Status failed(Status status, std::int16_t* removed) {
    if (removed)
        *removed = 0;
    return status;
}

/// Only entries are removed, so no program is looked for.
Status removeFromDesktop(const std::string& autostartFolder, std::string_view suffix, std::int16_t& removed) {
    AutostartLoginItemStore store(autostartFolder, [](const std::string&) { return std::string(); });
    return RemoveLoginItem(store, suffix, &removed);
}

bool isThere(Status status) {
    return status != resNotFound && status != fnfErr;
}

/// The user's lists are two: the desktop's, in which the panel registers, and the property list. One that is
/// not there does not count beside the other, and is not created then.
Status removeFromBoth(const std::string& autostartFolder, const std::string& preferencesFolder,
    std::string_view suffix, std::int16_t* removed) {
    std::int16_t entries = 0;
    std::int16_t elements = 0;
    const Status desktop = removeFromDesktop(autostartFolder, suffix, entries);
    std::error_code error;
    Status list = resNotFound;
    if (!isThere(desktop) ||
        std::filesystem::exists(std::filesystem::path(preferencesFolder) / kLoginItemsFile, error))
        list = RemoveLoginItemInFolder(preferencesFolder, suffix, &elements);
    const Status status = !isThere(desktop) || (isThere(list) && desktop == noErr) ? list : desktop;
    if (removed)
        *removed = status == noErr ? static_cast<std::int16_t>(entries + elements) : std::int16_t{0};
    return status;
}

} // namespace

Status RemoveLoginItem(std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!nameSuffix)
        return failed(paramErr, removed);
    const auto home = userHomeFolder();
    if (!home)
        return failed(fnfErr, removed);
    return removeFromBoth(
        userAutostartFolder().value_or(""), preferencesFolderIn(*home), *nameSuffix, removed);
}

Status RemoveLoginItemForUser(std::optional<std::string_view> homeFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!homeFolder || !nameSuffix)
        return failed(paramErr, removed);
    if (homeFolder->size() > kHomePathLimit)
        return failed(pathTooLongErr, removed);
    const std::string home(*homeFolder);
    return removeFromBoth(autostartFolderIn(home), preferencesFolderIn(home), *nameSuffix, removed);
}

Status RemoveLoginItemInFolder(std::optional<std::string_view> preferencesFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!preferencesFolder || !nameSuffix)
        return failed(paramErr, removed);
    PropertyListLoginItemStore store{std::string(*preferencesFolder)};
    return RemoveLoginItem(store, nameSuffix, removed);
}

} // namespace quorvi
