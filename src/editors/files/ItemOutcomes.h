// What the window says of an export and of an import.
#pragma once

#include <QString>
#include <QStringList>

#include <system_error>
#include <vector>

#include "model/ItemFile.h"
#include "widgets/FilledText.h"

namespace quorvi {

enum class ItemKind : std::uint8_t { profile, macro };

/// What was exported, and where to, as shownPath() of window/ShownPath.h gives it.
[[nodiscard]] QString exportedText(
    ItemKind kind, const QString& name, const QString& path, const PanelText& text);
/// Why it was not.
[[nodiscard]] QString notExportedText(
    const QString& name, const QString& path, std::error_code reason, const PanelText& text);

/// What was imported, and which inputs of it, 1 to 9, run macros that are not there.
[[nodiscard]] QString importedText(
    ItemKind kind, const QString& name, const std::vector<int>& withoutMacro, const PanelText& text);
/// Why the file, as shownPath() gives it, was not imported.
[[nodiscard]] QString notImportedText(
    ItemKind kind, const QString& path, ItemFault fault, const PanelText& text);
/// Why a profile with its macros was not: a later version wrote the file.
[[nodiscard]] QString notImportedNewerText(const QString& path, const PanelText& text);
/// There are as many items as there can be.
[[nodiscard]] QString listFullText(ItemKind kind, const QString& path, const PanelText& text);

} // namespace quorvi
