// The removals that name a user's list, not a store.
#include "pane/loginitems/LoginItems.h"
#include "pane/loginitems/PropertyListLoginItemStore.h"
#include "pane/loginitems/UserFolders.h"

namespace quorvi {

namespace {

constexpr std::size_t kHomePathLimit = 1000; // bytes

Status failed(Status status, std::int16_t* removed) {
    if (removed)
        *removed = 0;
    return status;
}

} // namespace

Status RemoveLoginItem(std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!nameSuffix)
        return failed(paramErr, removed);
    const auto home = userHomeFolder();
    if (!home)
        return failed(fnfErr, removed);
    return RemoveLoginItemInFolder(preferencesFolderIn(*home), nameSuffix, removed);
}

Status RemoveLoginItemForUser(std::optional<std::string_view> homeFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!homeFolder || !nameSuffix)
        return failed(paramErr, removed);
    if (homeFolder->size() > kHomePathLimit)
        return failed(pathTooLongErr, removed);
    return RemoveLoginItemInFolder(preferencesFolderIn(std::string(*homeFolder)), nameSuffix, removed);
}

Status RemoveLoginItemInFolder(std::optional<std::string_view> preferencesFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    if (!preferencesFolder || !nameSuffix)
        return failed(paramErr, removed);
    PropertyListLoginItemStore store{std::string(*preferencesFolder)};
    return RemoveLoginItem(store, nameSuffix, removed);
}

} // namespace quorvi
