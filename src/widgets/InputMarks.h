// The marked inputs, 1 to 9, on the buttons tab, and the reasons.
#pragma once

#include <QObject>

#include <array>
#include <bitset>

namespace quorvi {

inline constexpr int mouseInputs = 9;

class InputMarks : public QObject {
    Q_OBJECT

  public:
    enum Reason : std::size_t {
        Focused,  ///< its pop-up has the focus
        Pointed,  ///< the pointer is over it or its pop-up
        Pressed,  ///< a button is down in the window, or the wheel was just turned there
        Reported, ///< the same, reported by the helper
        Asked,    ///< the user is asked to press its button
        Known,    ///< its button was pressed
    };

    using QObject::QObject;

    /// Adds or removes the reason to mark the input. Does nothing for a number outside 1 to 9.
    void set(int input, Reason reason, bool on);
    /// Makes the input the only one with that reason; 0 for none.
    void setOnly(int input, Reason reason);

    /// Whether to show a mark. A pointed input takes the mark from the focused one.
    [[nodiscard]] bool isMarked(int input) const;
    [[nodiscard]] bool isPressed(int input) const;
    [[nodiscard]] bool isKnown(int input) const;

  signals:
    void changed();

  private:
    using Inputs = std::bitset<mouseInputs + 1>;

    void replace(Reason reason, const Inputs& inputs);

    std::array<Inputs, 6> m_inputs;
};

} // namespace quorvi
