// Who is asked before a table of the panel acts on a mouse button or a delete key.
#pragma once

class QMouseEvent;

namespace quorvi {

class KyvarQuorviTableView;

// The kinds of mouse event that a table tells its delegate of.
inline constexpr int kLeftMouseDown = 1;
inline constexpr int kLeftMouseUp = 2;
inline constexpr int kRightMouseDown = 3;
inline constexpr int kRightMouseUp = 4;
inline constexpr int kOtherMouseDown = 25;
inline constexpr int kOtherMouseUp = 26;

// The keys that a table hands to its delegate.
inline constexpr char16_t kDeleteKeyCharacter = 0x7F; ///< Backspace
inline constexpr char16_t kForwardDeleteKeyCharacter = 0xF728;
inline constexpr char16_t kDeleteCharacterKeyCharacter = 0xF73E;

class TableDelegate {
  public:
    virtual ~TableDelegate() = default;

    /// True when the event is dealt with and the table is not to act on it. The type is one of those above; a
    /// double click comes as one more press.
    virtual bool handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* table) = 0;
    /// One of the three keys above was pressed in the table; the row is the selected one, -1 for none.
    virtual void handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int row) = 0;
};

} // namespace quorvi
