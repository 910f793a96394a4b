// The parts of the panel that every editor uses.
#pragma once

#include "widgets/FilledText.h"

namespace quorvi {

class Document;
class Notices;
class Sheets;

/// All members must outlive the editor.
struct EditorContext {
    Document& document;
    PanelText text; ///< the texts of the panel, in the user's language
    Sheets& sheets;
    Notices& notices;
};

} // namespace quorvi
