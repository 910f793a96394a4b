// The removals from a user's lists instead of a store.
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

/// Only removes entries, so no executable is needed.
Status removeFromDesktop(const std::string& autostartFolder, std::string_view suffix, std::int16_t& removed) {
    AutostartLoginItemStore store(autostartFolder, [](const std::string&) { return std::string(); });
    return RemoveLoginItem(store, suffix, &removed);
}

bool isThere(Status status) {
    return status != resNotFound && status != fnfErr;
}

/// The user has two lists: the desktop's, in which the panel registers, and the property list. A missing one
/// is ignored if the other exists, and is not created.
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
