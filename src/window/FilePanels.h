// File panels: creates and shows them, and writes the chosen file.
#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <system_error>
#include <vector>

#include "widgets/FilledText.h"

class QFileDialog;
class QWidget;

namespace quorvi {

/// A kind of file that can be chosen.
struct FileKind {
    const char* extension;      ///< without a dot
    const char* plural;         ///< English, a key of the string table
    const char* also = nullptr; ///< another extension accepted for reading
};

/// A panel on the view's window for files of these kinds, starting with the first; its default suffix is
/// always the shown kind's extension. It starts in the last used folder, else in the user's documents;
/// restores the focus when it closes, and deletes itself.
[[nodiscard]] QFileDialog* filePanel(
    const QWidget& view, const QString& title, const std::vector<FileKind>& kinds, const PanelText& text);

/// Shows the panel for choosing a file to read, and returns it.
QFileDialog* showOpenPanel(QFileDialog* panel);

/// Shows the panel for choosing a file to write, with the item's name proposed, and returns it.
QFileDialog* showSavePanel(QFileDialog* panel, const QString& name);

/// The result of writing a file.
struct WrittenFile {
    std::filesystem::path path;
    std::error_code error; ///< no error if it was written
};

/// Writes the file chosen in a save panel, with the extension added if missing. Returns file_exists if that
/// leads to another existing file, which the user was not asked about.
[[nodiscard]] WrittenFile writeChosen(const QString& chosen, const QString& extension,
    const std::function<std::error_code(const std::filesystem::path& path)>& write);

} // namespace quorvi
