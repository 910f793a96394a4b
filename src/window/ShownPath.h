// Paths between the file system, Qt and the user's eye.
#pragma once

#include <QString>

#include <filesystem>

namespace quorvi {

/// The path as users write it: from their home folder where it is in there. Long names are cut.
[[nodiscard]] QString shownPath(const std::filesystem::path& path, const std::filesystem::path& home);

/// The path in the file system's own bytes.
[[nodiscard]] std::filesystem::path nativePath(const QString& path);

} // namespace quorvi
