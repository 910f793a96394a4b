// The panel's slider. The user moves it by whole steps only, because the mouse stores a sensitivity as a
// number of steps; a value set by the program is shown unchanged.
#pragma once

#include <QSlider>

#include "widgets/AccessibleWidgets.h"

namespace quorvi {

class KyvarQuorviSlider : public QSlider {
    Q_OBJECT
    /// The number of whole values for 1.0 of floatValue(); 1 by default.
    Q_PROPERTY(int valuesPerUnit READ valuesPerUnit WRITE setValuesPerUnit)

  public:
    explicit KyvarQuorviSlider(QWidget* parent = nullptr);
    ~KyvarQuorviSlider() override;

    [[nodiscard]] int valuesPerUnit() const { return m_valuesPerUnit; }
    /// Values below 1 count as 1.
    void setValuesPerUnit(int values);

    /// value() / valuesPerUnit().
    [[nodiscard]] float floatValue() const;
    /// Sets the nearest whole value, within the range. NaN sets the minimum.
    void setFloatValue(float value);

    /// High enough for the whole handle.
    [[nodiscard]] QSize sizeHint() const override { return withWholeHandle(QSlider::sizeHint()); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return withWholeHandle(QSlider::minimumSizeHint());
    }

    /// As the user does: from the nearest whole step, up or down.
    void moveBySteps(int steps);

    /// The nearest whole step from the minimum, within the range.
    [[nodiscard]] int nearestStep(int value) const;

  signals:
    /// The user changed the value by mouse, key, wheel or an assistive program; value() is the new one.
    /// setValue() does not emit it.
    void valueChosen(int value);
    /// The left button was pressed on the slider. No value is chosen yet.
    void mouseDownBegan();
    /// The press has ended, moved or not: the button was released, the slider was hidden, disabled or
    /// destroyed, or its window lost the focus. Emitted once for each mouseDownBegan().
    void mouseDownEnded();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Moves by the desktop's steps for each notch, even if the wheel or touchpad turns less than a notch at
    /// a time: fractions of a step are accumulated.
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void snapToStep(int action);
    void announceChoice(int newValue);
    void endMouseDown();
    /// Styles fill the part up to the handle with the theme's highlight, which can be too close to the
    /// window.
    void takeMarkColour();
    /// Breeze of Plasma 6 fills it with a colour of the desktop's scheme in place of the palette's.
    void fillAgain();
    [[nodiscard]] QSize withWholeHandle(QSize size) const;

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    int m_valuesPerUnit = 1;
    bool m_userMoves = false;
    bool m_mouseIsDown = false;
    int m_turned = 0; ///< the wheel's turn that is not yet a whole step
};

} // namespace quorvi
