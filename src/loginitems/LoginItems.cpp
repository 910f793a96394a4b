#include "loginitems/LoginItems.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "loginitems/PathText.h"

namespace quorvi {

namespace {

constexpr std::size_t kMatchLimit = 16;

/// An application in the form that the matching pass needs.
struct Application {
    std::string_view path;
    std::string_view name;
    std::optional<std::string_view> secondSuffix;
};

struct Matches {
    std::vector<std::size_t> indices; // ascending
    bool anyExact = false;
};

/// The last component of the path, including a closing slash: the search for the preceding slash starts at
/// the last byte but one.
std::string_view applicationName(std::string_view path) {
    const auto slash = path.size() < 2 ? std::string_view::npos : path.rfind('/', path.size() - 2);
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

/// Nothing ends with an empty suffix: it must not clear the list.
bool endsWith(std::string_view path, std::string_view suffix) {
    return !suffix.empty() && path.ends_with(suffix);
}

Matches matchesFor(const LoginItems& items, const Application& application) {
    Matches matches;
    for (std::size_t i = 0; i < items.size() && matches.indices.size() < kMatchLimit; ++i) {
        if (!items[i].path)
            continue;
        const std::string& path = *items[i].path;
        const bool exact = equalIgnoringCase(path, application.path);
        matches.anyExact |= exact;
        if (exact || endsWith(path, application.name) ||
            (application.secondSuffix && endsWith(path, *application.secondSuffix)))
            matches.indices.push_back(i);
    }
    return matches;
}

/// From the highest index down, so that the lower ones stay valid.
void removeAt(LoginItems& items, const std::vector<std::size_t>& indices) {
    for (auto index = indices.rbegin(); index != indices.rend(); ++index)
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(*index));
}

void putInPlaceOf(LoginItems& items, std::vector<std::size_t> indices, LoginItem item) {
    item.origin = items[indices.front()].origin;
    items[indices.front()] = std::move(item);
    indices.erase(indices.begin());
    removeAt(items, indices);
}

std::vector<std::size_t> indicesEndingWith(const LoginItems& items, std::string_view suffix) {
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < items.size() && indices.size() < kMatchLimit; ++i)
        if (items[i].path && endsWith(*items[i].path, suffix))
            indices.push_back(i);
    return indices;
}

/// Sets `removed` on success only.
Status removeEndingWith(LoginItemStore& store, std::string_view suffix, std::int16_t& removed) {
    LoginItems items;
    if (const Status status = store.read(LoginItemAccess::Remove, items); status != noErr)
        return status;
    const auto indices = indicesEndingWith(items, suffix);
    if (indices.empty())
        return noErr;
    removeAt(items, indices);
    const Status status = store.write(items);
    if (status == noErr)
        removed = static_cast<std::int16_t>(indices.size());
    return status;
}

} // namespace

Status AddLoginItem(LoginItemStore& store, std::optional<std::string_view> path,
    std::optional<std::string_view> secondSuffix, bool hide, bool replace, bool* alreadyRegistered) {
    if (!path)
        return paramErr;
    if (path->empty() || !isUtf8(*path))
        return ioErr;
    LoginItems items;
    if (const Status status = store.read(LoginItemAccess::Add, items); status != noErr)
        return status;

    const auto matches = matchesFor(items, {*path, applicationName(*path), secondSuffix});
    if (alreadyRegistered)
        *alreadyRegistered = matches.anyExact;
    if (matches.indices.size() == 1 && matches.anyExact)
        return noErr;

    LoginItem item{std::string(*path), hide, std::nullopt, true};
    if (!matches.indices.empty() && (matches.anyExact || replace))
        putInPlaceOf(items, matches.indices, std::move(item));
    else
        items.push_back(std::move(item));
    return store.write(items) == memFullErr ? memFullErr : noErr;
}

Status RemoveLoginItem(
    LoginItemStore& store, std::optional<std::string_view> nameSuffix, std::int16_t* removed) {
    std::int16_t count = 0;
    const Status status = nameSuffix ? removeEndingWith(store, *nameSuffix, count) : paramErr;
    if (removed)
        *removed = count;
    return status;
}

} // namespace quorvi
