// Keeps the text that the user types into an editor of a cell.
#pragma once

#include <QWidget>

namespace quorvi {

/// Whether this is the first call for the editor. A delegate must fill the editor only then: the cell may
/// change while the user types, for example its sign or its second line.
[[nodiscard]] inline bool isNewEditor(QWidget& editor) {
    constexpr char filled[] = "quorviFilled";
    if (editor.property(filled).toBool())
        return false;
    editor.setProperty(filled, true);
    return true;
}

} // namespace quorvi
