// What sentences call an input of the mouse.
#pragma once

#include <QString>

#include "widgets/FilledText.h"

namespace quorvi {

/// The input, 1 to 9, of the profile of that name, as a sentence begins with it.
[[nodiscard]] QString inputName(int input, const QString& profile, const PanelText& text);

} // namespace quorvi
