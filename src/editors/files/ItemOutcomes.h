// The window's messages about exports and imports.
#pragma once

#include <QString>
#include <QStringList>

#include <system_error>
#include <vector>

#include "model/ItemFile.h"
#include "widgets/FilledText.h"

namespace quorvi {

enum class ItemKind : std::uint8_t { profile, macro };

/// The exported item and its path, from shownPath() of window/ShownPath.h.
[[nodiscard]] QString exportedText(
    ItemKind kind, const QString& name, const QString& path, const PanelText& text);
/// Why the export failed.
[[nodiscard]] QString notExportedText(
    const QString& name, const QString& path, std::error_code reason, const PanelText& text);

/// The imported item, and its inputs, 1 to 9, whose macros are missing.
[[nodiscard]] QString importedText(
    ItemKind kind, const QString& name, const std::vector<int>& withoutMacro, const PanelText& text);
/// Why the import failed, with the path from shownPath().
[[nodiscard]] QString notImportedText(
    ItemKind kind, const QString& path, ItemFault fault, const PanelText& text);
/// The import of a profile with its macros failed: a later version wrote the file.
[[nodiscard]] QString notImportedNewerText(const QString& path, const PanelText& text);
/// The import failed because the list is full.
[[nodiscard]] QString listFullText(ItemKind kind, const QString& path, const PanelText& text);

} // namespace quorvi
