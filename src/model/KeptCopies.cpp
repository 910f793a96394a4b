#include "model/KeptCopies.h"

#include <charconv>
#include <cstdint>
#include <fcntl.h>
#include <set>
#include <string>
#include <unistd.h>

#include "model/AtomicFile.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

using Number = std::uint32_t;

std::string nameOfCopy(const fs::path& file, Number number) {
    return file.stem().string() + ".kept-" + std::to_string(number) + file.extension().string();
}

/// The number in the name of a copy of the file; nothing in any other name.
std::optional<Number> numberOf(const fs::path& file, const std::string& name) {
    const std::string start = file.stem().string() + ".kept-";
    if (!name.starts_with(start))
        return std::nullopt;
    Number number = 0;
    std::from_chars(name.data() + start.size(), name.data() + name.size(), number);
    return nameOfCopy(file, number) == name ? std::optional(number) : std::nullopt;
}

/// The numbers of the copies; nothing when the folder cannot be read, and one of them might be written over.
std::optional<std::set<Number>> copiesOf(const fs::path& file) {
    std::set<Number> numbers;
    std::error_code error;
    for (fs::directory_iterator entry(file.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        if (const auto number = numberOf(file, entry->path().filename().string()))
            numbers.insert(*number);
    }
    return error ? std::nullopt : std::optional(numbers);
}

void removeOldest(const fs::path& file, std::set<Number> numbers, FileCalls& calls) {
    for (; numbers.size() > kMaxKeptCopies; numbers.erase(numbers.begin()))
        calls.unlinkat(AT_FDCWD, (file.parent_path() / nameOfCopy(file, *numbers.begin())).c_str());
}

/// Has the copy of the next number made by the function, which says whether it was.
template <typename Make>
std::optional<fs::path> makeNextCopy(const fs::path& file, FileCalls& calls, Make&& make) {
    auto numbers = copiesOf(file);
    if (!numbers)
        return std::nullopt;
    const Number next = numbers->empty() ? 1 : *numbers->rbegin() + 1;
    const fs::path copy = file.parent_path() / nameOfCopy(file, next);
    if (next == 0 || !make(copy))
        return std::nullopt;
    numbers->insert(next);
    removeOldest(file, *std::move(numbers), calls);
    return copy;
}

} // namespace

std::optional<fs::path> keepCopy(const fs::path& file, std::string_view bytes, FileCalls& calls) {
    constexpr mode_t ownerOnly = 0600;
    return makeNextCopy(file, calls, [&](const fs::path& copy) {
        return replaceFileAtomically(copy, bytes, calls, Durability::now, ownerOnly);
    });
}

std::optional<fs::path> keepUnread(const fs::path& file, FileCalls& calls) {
    return makeNextCopy(file, calls, [&](const fs::path& copy) {
        return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, copy.c_str(), AT_SYMLINK_FOLLOW) == 0 &&
               syncFolder(copy.parent_path(), calls);
    });
}

} // namespace quorvi
