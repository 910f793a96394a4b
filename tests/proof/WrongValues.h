// Values of wrong types and extremes for places in a settings file.
#pragma once

#include <QString>

#include <filesystem>
#include <vector>

#include "plist/Value.h"

namespace quorvi::test {

struct WrongValue {
    const char* name;
    plist::Value value; ///< nothing: the key is missing
    bool uid = false;   ///< a UID, which only binary files have
};

/// One of each type of property lists, and the extremes of each.
[[nodiscard]] const std::vector<WrongValue>& wrongValues();

/// Keys and indices that lead from the tree to a value.
using Path = std::vector<std::string>;
[[nodiscard]] QString pathText(const Path& path);

/// A tree in which every key that the panel knows occurs, with values that the panel would write.
[[nodiscard]] plist::Dictionary treeWithEveryKey();
/// Every place of that tree: each key and each element, the containers too. Of the second profile only what
/// the panel shows of one that is not the current.
[[nodiscard]] const std::vector<Path>& everyPlace();

/// Writes a settings file whose tree has the value at the place, and gives that tree as it is read back.
plist::Dictionary writeSpoiltFile(
    const std::filesystem::path& file, const Path& place, const WrongValue& value);

} // namespace quorvi::test
