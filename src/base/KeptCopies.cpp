#include "base/KeptCopies.h"

#include <cerrno>
#include <charconv>
#include <limits>
#include <set>

#include <fcntl.h>

namespace quorvi {

namespace {

namespace fs = std::filesystem;

using Number = std::uint32_t;

std::string nameOfCopy(const fs::path& file, Number number) {
    return file.stem().string() + ".kept-" + std::to_string(number) + file.extension().string();
}

/// The number in the name of a copy of the file; std::nullopt for any other name.
std::optional<Number> numberOf(const fs::path& file, const std::string& name) {
    const std::string start = file.stem().string() + ".kept-";
    if (!name.starts_with(start))
        return std::nullopt;
    Number number = 0;
    std::from_chars(name.data() + start.size(), name.data() + name.size(), number);
    return nameOfCopy(file, number) == name ? std::optional(number) : std::nullopt;
}

/// The numbers of the copies; std::nullopt if the folder cannot be read, because a copy might then be
/// overwritten.
std::optional<std::set<Number>> copiesOf(const fs::path& file) {
    std::set<Number> numbers;
    std::error_code error;
    const fs::path folder = file.has_parent_path() ? file.parent_path() : ".";
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (const auto number = numberOf(file, entry->path().filename().string()))
            numbers.insert(*number);
    }
    errno = error.value();
    return error ? std::nullopt : std::optional(numbers);
}

} // namespace

std::optional<std::string> nameOfNextCopy(const fs::path& file) {
    const auto numbers = copiesOf(file);
    if (!numbers)
        return std::nullopt;
    Number top = std::numeric_limits<Number>::max();
    auto highest = numbers->rbegin();
    for (; highest != numbers->rend() && *highest == top; ++highest)
        --top;
    return nameOfCopy(file, highest == numbers->rend() ? 1 : *highest + 1);
}

void removeOldestCopies(const fs::path& file, const std::string& newest, FileCalls& calls) {
    auto numbers = copiesOf(file);
    const auto kept = numberOf(file, newest);
    if (!numbers || !kept)
        return;
    numbers->erase(*kept);
    for (; numbers->size() >= kMaxKeptCopies; numbers->erase(numbers->begin()))
        calls.unlinkat(AT_FDCWD, (file.parent_path() / nameOfCopy(file, *numbers->begin())).c_str());
}

} // namespace quorvi
