// Handles mouse buttons and delete keys before a table of the panel does.
#pragma once

class QMouseEvent;

namespace quorvi {

class KyvarQuorviTableView;

// The kinds of mouse events that a table passes to its delegate.
inline constexpr int kLeftMouseDown = 1;
inline constexpr int kLeftMouseUp = 2;
inline constexpr int kRightMouseDown = 3;
inline constexpr int kRightMouseUp = 4;
inline constexpr int kOtherMouseDown = 25;
inline constexpr int kOtherMouseUp = 26;

// The keys that a table passes to its delegate.
inline constexpr char16_t kDeleteKeyCharacter = 0x7F; ///< Backspace
inline constexpr char16_t kForwardDeleteKeyCharacter = 0xF728;
inline constexpr char16_t kDeleteCharacterKeyCharacter = 0xF73E;

class TableDelegate {
  public:
    virtual ~TableDelegate() = default;

    /// Returns true if the event is handled and the table must ignore it. The type is one of those above; a
    /// double click is another press.
    virtual bool handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* table) = 0;
    /// One of the three keys above was pressed in the table; the row is the selected one, -1 for none.
    virtual void handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int row) = 0;
};

} // namespace quorvi
