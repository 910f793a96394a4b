// What every editor is given of the panel.
#pragma once

#include "widgets/FilledText.h"

namespace quorvi {

class Document;
class Notices;
class Sheets;

/// All of it must outlive the editor.
struct EditorContext {
    Document& document;
    PanelText text; ///< the texts of the panel, in the user's language
    Sheets& sheets;
    Notices& notices;
};

} // namespace quorvi
