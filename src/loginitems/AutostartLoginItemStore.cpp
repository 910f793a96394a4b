#include "loginitems/AutostartLoginItemStore.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "applications/DesktopEntryKeys.h"
#include "base/AtomicFile.h"
#include "base/Leftovers.h"
#include "loginitems/Files.h"

namespace quorvi {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kExtension = ".desktop";
constexpr std::size_t kStemLimit = 100; // bytes; leaves room for a number below any file system's limit

/// A file name in the portable character set, never hidden.
std::string fileStem(const std::string& applicationPath) {
    std::string stem = displayName(applicationPath).substr(0, kStemLimit);
    for (char& c : stem) {
        const bool portable = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                              c == '.' || c == '-' || c == '_';
        if (!portable)
            c = '_';
    }
    if (stem.starts_with('.'))
        stem.front() = '_';
    return stem;
}

/// The indices below `count` that are the origin of no element.
std::vector<std::size_t> leftOutOf(const LoginItems& items, std::size_t count) {
    std::vector<std::size_t> leftOut;
    for (std::size_t i = 0; i < count; ++i)
        if (std::none_of(items.begin(), items.end(), [&](const auto& item) { return item.origin == i; }))
            leftOut.push_back(i);
    return leftOut;
}

std::vector<std::string> entryFileNames(const std::string& folder, std::error_code& error) {
    std::vector<std::string> names;
    for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
        if (std::string name = file->path().filename(); name.ends_with(kExtension))
            names.push_back(std::move(name));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

AutostartLoginItemStore::AutostartLoginItemStore(
    std::string folder, ExecutableOf executableOf, FileCalls& calls)
    : m_folder(std::move(folder)), m_executableOf(std::move(executableOf)), m_calls(calls) {}

std::string AutostartLoginItemStore::pathOf(const std::string& fileName) const {
    return m_folder + "/" + fileName;
}

Status AutostartLoginItemStore::read(LoginItemAccess access, LoginItems& items) {
    std::error_code error;
    const auto folder = fs::status(m_folder, error).type();
    const bool missing = folder == fs::file_type::not_found;
    if (missing && access == LoginItemAccess::Remove)
        return resNotFound;
    if (!missing && folder != fs::file_type::directory)
        return fnfErr;
    error.clear();
    const auto names = missing ? std::vector<std::string>() : entryFileNames(m_folder, error);
    if (error)
        return resNotFound;

    std::vector<Element> elements;
    LoginItems list;
    for (const auto& name : names) {
        if (const auto entry = parseDesktopEntry(desktopEntryFileText(pathOf(name)))) {
            list.push_back({entry->applicationPath, entry->hide, elements.size(), false});
            elements.push_back({name, *entry});
        }
    }
    m_elements = std::move(elements);
    items = std::move(list);
    return noErr;
}

std::string AutostartLoginItemStore::freeFileName(
    const std::string& applicationPath, const std::vector<Change>& changes) const {
    const std::string stem = fileStem(applicationPath);
    const auto taken = [&](const std::string& name) {
        std::error_code error;
        return fs::exists(fs::symlink_status(pathOf(name), error)) ||
               std::any_of(changes.begin(), changes.end(),
                   [&](const auto& change) { return change.fileName == name; });
    };
    std::string name = stem + std::string(kExtension);
    for (int number = 2; taken(name); ++number)
        name = stem + "-" + std::to_string(number) + std::string(kExtension);
    return name;
}

Status AutostartLoginItemStore::write(const LoginItems& items) {
    const auto leftOut = leftOutOf(items, m_elements.size());
    const auto isOff = [&](std::size_t index) { return m_elements[index].entry.disabled; };
    const bool disabled = std::any_of(leftOut.begin(), leftOut.end(), isOff);

    std::vector<Change> changes;
    for (const auto& item : items) {
        if (!item.changed || !item.path)
            continue;
        const bool off = disabled || (item.origin && isOff(*item.origin));
        const auto text = desktopEntryText({*item.path, item.hide, off}, m_executableOf(*item.path));
        if (!text)
            return memFullErr;
        changes.push_back(
            {item.origin ? m_elements[*item.origin].fileName : freeFileName(*item.path, changes), *text});
    }
    return apply(changes, leftOut);
}

Status AutostartLoginItemStore::apply(
    const std::vector<Change>& changes, const std::vector<std::size_t>& leftOut) {
    if (const Status status = changes.empty() ? noErr : makeFolder(m_folder); status != noErr)
        return status;
    if (!changes.empty())
        removeLeftovers(pathOf(changes.front().fileName), m_calls);
    // Sessions and listing tools of other users read them, so the umask must not apply.
    constexpr ModeOfNew forEverybodyToRead{0644, true};
    for (const auto& change : changes)
        if (!replaceFileAtomically(
                pathOf(change.fileName), change.text, m_calls, Durability::now, forEverybodyToRead))
            return ioErr;
    for (const std::size_t index : leftOut)
        if (const Status status = removeFile(pathOf(m_elements[index].fileName), m_calls); status != noErr)
            return status;
    return noErr;
}

} // namespace quorvi
