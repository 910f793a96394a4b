// The title of the window: the profile that is edited, and the list of the others.
#pragma once

#include "widgets/MenuButton.h"

class QLabel;

namespace quorvi {

/// A flat button that shows a label which stands in it, with a sign before it while the mouse runs what it
/// names, and an arrow while it can be pressed. The label is not pointed at. It may be cut; everything else
/// is shown.
class ProfileButton : public MenuButton {
    Q_OBJECT

  public:
    explicit ProfileButton(QWidget* parent = nullptr);

    /// The mouse runs the profile, or another one.
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

    bool m_runs = false;
};

} // namespace quorvi
