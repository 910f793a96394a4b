// The panels of imports and exports, made and shown.
#pragma once

#include <QString>

#include "widgets/FilledText.h"

class QFileDialog;
class QWidget;

namespace quorvi {

/// A kind of file that one item goes into.
struct FileKind {
    const char* extension; ///< of its name, without a dot
    const char* plural;    ///< English, a key of the string table
};

/// A panel on the view's window for files of the kind. It starts in the folder that was used last, or where
/// the user's own files are; gives the keyboard back when it goes; and deletes itself when it is closed.
[[nodiscard]] QFileDialog* filePanel(
    const QWidget& view, const QString& title, const FileKind& kind, const PanelText& text);

/// Shows the panel for the choice of one file to be read, and returns it.
QFileDialog* showOpenPanel(QFileDialog* panel);

/// Shows the panel for the choice of a file to be written, with the item's name as a proposal, and returns
/// it.
QFileDialog* showSavePanel(QFileDialog* panel, const QString& name);

} // namespace quorvi
