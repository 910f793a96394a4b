// The small signs of the panel. They are drawn from outlines at any size, in the colour of the text around
// them, so that they fit light and dark desktops, every scale, and desktops without an icon theme. Loading
// the first sign from a theme would cost 2 to 8 ms of the start.
#pragma once

#include <QIcon>

#include <cstdint>

class QColor;
class QPainter;
class QRectF;

namespace quorvi {

enum class Symbol : std::uint8_t {
    Mouse,
    Speed,
    Profile,
    Macro,
    Device,
    Undo,
    Redo,
    Help,
    Play,
    Stop,
    Opens, ///< an arrow down: a menu
    Add,
    Remove,
    More,
    Open,    ///< a file or an application
    KeyDown, ///< a key that is pressed
    KeyUp,   ///< a key that is released
    Record,
    Information,
    Warning,
    // Functions of the mouse.
    ClickLeft,
    ClickRight,
    ClickMiddle,
    Keyboard,
    GoUp,
    GoDown,
    GoPrevious,
    GoNext,
    GoTop,
    GoBottom,
    ZoomIn,
    ZoomOut,
    Copy,
    Cut,
    Paste,
    SelectAll,
    PlayPause,
    SkipForward,
    SkipBackward,
    Halt, ///< stops playing; Stop stops a recording
    VolumeUp,
    VolumeDown,
    Mute,
    Tabs,
    Desktop,
    Windows,
    Screenshot,
    LockScreen,
    Locked,
    Close,
};

/// For buttons: in the colour of their text, or greyed; the sign of recording is red.
[[nodiscard]] QIcon symbolIcon(Symbol symbol);

/// Draws the sign as large as the rectangle allows, in its middle.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& place, const QColor& colour);

} // namespace quorvi
