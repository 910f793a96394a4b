// Which of the mouse's inputs 1 to 9 are marked on the buttons tab, and why.
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
        Reported, ///< likewise, as the helper says of the mouse
        Asked,    ///< its button is to be pressed
        Known,    ///< its button has been
    };

    using QObject::QObject;

    /// Gives the input that reason to be marked, or takes it back. A number outside of 1 to 9 does nothing.
    void set(int input, Reason reason, bool on);
    /// The same for all inputs but the one, which alone has that reason then; 0 for none.
    void setOnly(int input, Reason reason);

    /// Whether to show a mark. What is pointed at takes the mark from what has the focus.
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
