// The panels in which files are chosen, made and shown, and the writing of what was chosen.
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
    const char* extension;      ///< of its name, without a dot
    const char* plural;         ///< English, a key of the string table
    const char* also = nullptr; ///< another extension that is as good, to be read
};

/// A panel on the view's window for files of the kinds, the first of which is shown first; its default suffix
/// is always the extension of the kind that is shown. It starts in the folder that was used last, or where
/// the user's own files are; gives the keyboard back when it goes; and deletes itself when it is closed.
[[nodiscard]] QFileDialog* filePanel(
    const QWidget& view, const QString& title, const std::vector<FileKind>& kinds, const PanelText& text);

/// Shows the panel for the choice of one file to be read, and returns it.
QFileDialog* showOpenPanel(QFileDialog* panel);

/// Shows the panel for the choice of a file to be written, with the item's name as a proposal, and returns
/// it.
QFileDialog* showSavePanel(QFileDialog* panel, const QString& name);

/// What came of writing a file.
struct WrittenFile {
    std::filesystem::path path;
    std::error_code error; ///< no error when it is written
};

/// Has the file written that was chosen in a save panel, with the extension at the end of its name.
/// file_exists when that makes it the name of another file, which nobody has been asked about.
[[nodiscard]] WrittenFile writeChosen(const QString& chosen, const QString& extension,
    const std::function<std::error_code(const std::filesystem::path& path)>& write);

} // namespace quorvi
