// The measures of the window, in logical pixels, and nowhere else: which they are and why stands in
// docs/LOOK.md. Interface files name a role instead (see Gaps.h). Heights grow with the font: what is named
// "air" comes on top of it.
#pragma once

#include <QtGlobal>

namespace quorvi::metrics {

inline constexpr int fieldGap = 4;    ///< a label above its field
inline constexpr int rowGap = 8;      ///< controls of one row; a list and its buttons
inline constexpr int groupGap = 12;   ///< columns of a form; heading and count
inline constexpr int sectionGap = 16; ///< between sections: twice a row's, so that the gap itself separates
inline constexpr int columnGap = 16;  ///< a list and what belongs to its row

inline constexpr int headLeft =
    12; ///< flat buttons have a margin of their own, so that text begins at pageMargin
inline constexpr int headTop = 6;
inline constexpr int headBottom = 2;

inline constexpr int pageMargin = 20;       ///< sides of a page
inline constexpr int narrowPageMargin = 12; ///< the same where the page is narrow
inline constexpr int pageTop = 12;
inline constexpr int pageBottom = 8;
inline constexpr int maxContentWidth = 900; ///< of a page without its margins; it is centred beyond
inline constexpr int narrowWidth = 700;     ///< below it a page is narrow
inline constexpr int leastWidth = 580;      ///< everything can be reached; smaller is not offered
inline constexpr int leastPage = 160;       ///< height of a page that scrolls

inline constexpr int tabPadding = 16;      ///< at the sides of a tab's sign and title
inline constexpr int narrowTabPadding = 8; ///< the same where there is less room
inline constexpr int tabAir = 16;
inline constexpr int tabMark = 3; ///< line under the current tab

inline constexpr int listIconSize = 24;    ///< applications in lists
inline constexpr int rowAir = 10;          ///< a row of a list is as high as the font and this
inline constexpr int tallRowAir = 18;      ///< the same where the row has an icon
inline constexpr int twoLineAir = 12;      ///< a row of two lines is as high as both and this
inline constexpr int leastListWidth = 150; ///< of a list beside what belongs to its row

inline constexpr int mostTimeline = 160;      ///< height of a macro's timeline; with more lanes it scrolls
inline constexpr int emptyDrawingWidth = 132; ///< of the drawing of an empty state
inline constexpr int emptyDrawingHeight = 84;

inline constexpr int badge = 20;    ///< a number beside its field
inline constexpr int badgeGap = 6;  ///< between it and what it numbers
inline constexpr int knee = 14;     ///< level part of a leader line at its field
inline constexpr int markFrame = 2; ///< around a field whose input is pointed at
inline constexpr int leastMouse = 150, leastMouseHigh = 246;
inline constexpr qreal mostMouse = 1.8; ///< times its sheet
inline constexpr int usualField = 205;  ///< width that the mouse leaves to a field where it can

inline constexpr int curveWidth = 150; ///< of the acceleration curve, at least
inline constexpr int curveHeight = 112;
inline constexpr int stageBarAir = 20; ///< on top of two lines

inline constexpr int iconSize = 16;  ///< signs in buttons, tabs and pop-ups
inline constexpr int stateSign = 10; ///< whether a mouse is connected, beside the text that says it
inline constexpr int corner = 4;     ///< of messages and focus frames
inline constexpr int focusFrame = 2; ///< width of the frame that shows the focus

} // namespace quorvi::metrics
