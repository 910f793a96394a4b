// Editors of cells keep what the user types.
#pragma once

#include <QWidget>

namespace quorvi {

/// Whether this is the first call for the editor. A delegate fills it then and never again: its cell also
/// changes while the user types, when a sign or a second line of it does.
[[nodiscard]] inline bool isNewEditor(QWidget& editor) {
    constexpr char filled[] = "quorviFilled";
    if (editor.property(filled).toBool())
        return false;
    editor.setProperty(filled, true);
    return true;
}

} // namespace quorvi
