// The small signs on the panel's buttons. They are drawn in the palette's text colour at any size, so that
// they fit a light and a dark desktop, every scale, and a desktop without an icon theme.
#pragma once

#include <QIcon>

namespace quorvi {

enum class Symbol { Add, Remove, Gear, Record, Undo, Redo };

[[nodiscard]] QIcon symbolIcon(Symbol symbol);

} // namespace quorvi
