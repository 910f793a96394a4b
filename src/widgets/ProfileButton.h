// The title of the window: the edited profile, and a menu of the others.
#pragma once

#include "widgets/MenuButton.h"

class QLabel;

namespace quorvi {

/// A flat button that contains a label, with a sign before it while the mouse runs the named profile, and an
/// arrow while the button is enabled. The label ignores the pointer. Only the label may be cut.
class ProfileButton : public MenuButton {
    Q_OBJECT

  public:
    explicit ProfileButton(QWidget* parent = nullptr);

    /// Sets whether the mouse runs the named profile.
    void setRunning(bool runs);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QLabel* label() const;
    [[nodiscard]] int signRoom() const;
    [[nodiscard]] QSize around(int labelWidth) const;
    void placeLabel();
    void keepColour();

    bool m_runs = false;
};

} // namespace quorvi
