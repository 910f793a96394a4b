// Converts paths between the file system, Qt and display.
#pragma once

#include <QString>

#include <filesystem>

namespace quorvi {

/// The displayed path, with "~" for the home folder. Long names are cut.
[[nodiscard]] QString shownPath(const std::filesystem::path& path, const std::filesystem::path& home);

/// The path in the file system's own bytes.
[[nodiscard]] std::filesystem::path nativePath(const QString& path);

} // namespace quorvi
