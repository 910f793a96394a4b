// Names of the mouse's inputs in sentences.
#pragma once

#include <QString>

#include "widgets/FilledText.h"

namespace quorvi {

/// The input, 1 to 9, of the named profile, for the beginning of a sentence.
[[nodiscard]] QString inputName(int input, const QString& profile, const PanelText& text);

} // namespace quorvi
