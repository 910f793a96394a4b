// The measures of the window, in logical pixels. They are defined only here; docs/LOOK.md gives the reasons.
// Interface files name a role instead (see Gaps.h). Heights grow with the font: an "air" is added to the
// font's height.
#pragma once

#include <QtGlobal>

namespace quorvi::metrics {

inline constexpr int fieldGap = 4;    ///< a label above its field
inline constexpr int rowGap = 8;      ///< controls of one row; a list and its buttons
inline constexpr int groupGap = 12;   ///< columns of a form; heading and count
inline constexpr int sectionGap = 16; ///< between sections: twice a row's, so that the gap itself separates
inline constexpr int columnGap = 16;  ///< between a list and the details of its row

inline constexpr int headLeft =
    12; ///< flat buttons have their own margin, so that their text begins at pageMargin
inline constexpr int headTop = 6;
inline constexpr int headBottom = 2;

inline constexpr int pageMargin = 20;       ///< sides of a page
inline constexpr int narrowPageMargin = 12; ///< the same on a narrow page
inline constexpr int pageTop = 12;
inline constexpr int pageBottom = 8;
inline constexpr int maxContentWidth = 900; ///< of a page without its margins; it is centred beyond
inline constexpr int narrowWidth = 620;     ///< a page below this width is narrow
inline constexpr int leastWidth = 580;      ///< the minimum of the window; every control stays reachable
inline constexpr int leastPage = 160;       ///< height of a page that scrolls

inline constexpr int tabPadding = 16;      ///< at the sides of a tab's sign and title
inline constexpr int narrowTabPadding = 8; ///< the same with less room
inline constexpr int tabAir = 16;
inline constexpr int tabMark = 3; ///< line under the current tab

inline constexpr int listIconSize = 24;    ///< applications in lists
inline constexpr int rowAir = 10;          ///< added to the font's height for a row of a list
inline constexpr int tallRowAir = 18;      ///< the same for a row with an icon
inline constexpr int twoLineAir = 12;      ///< added to the height of both lines for a row of two
inline constexpr int leastListWidth = 150; ///< of a list next to the details of its row

inline constexpr int mostTimeline = 160;      ///< height of a macro's timeline; with more lanes it scrolls
inline constexpr int emptyDrawingWidth = 132; ///< of the drawing of an empty state
inline constexpr int emptyDrawingHeight = 84;

inline constexpr int badge = 20;    ///< a number next to its field
inline constexpr int badgeGap = 6;  ///< between the number and its field
inline constexpr int knee = 14;     ///< level part of a leader line at its field
inline constexpr int markFrame = 2; ///< around the field of the pointed input
inline constexpr int leastMouse = 150, leastMouseHigh = 246;
inline constexpr qreal mostMouse = 1.8; ///< times its sheet
inline constexpr int usualField = 205;  ///< the width of a field that the mouse leaves free if possible

inline constexpr int curveWidth = 150; ///< of the acceleration curve, at least
inline constexpr int curveHeight = 112;
inline constexpr int stageBarAir = 20; ///< on top of two lines

inline constexpr int iconSize = 16;  ///< signs in buttons, tabs and pop-ups
inline constexpr int stateSign = 10; ///< the sign for a connected mouse, next to its text
inline constexpr int corner = 4;     ///< of messages and focus frames
inline constexpr int focusFrame = 2; ///< width of the frame that shows the focus

} // namespace quorvi::metrics
