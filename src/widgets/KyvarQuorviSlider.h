// The panel's slider. The user moves it by whole steps only, because the mouse stores a sensitivity as a
// number of steps; a value that the program sets is shown as it is.
#pragma once

#include <QSlider>

#include "widgets/AccessibleWidgets.h"

namespace quorvi {

class KyvarQuorviSlider : public QSlider {
    Q_OBJECT
    /// How many whole values make 1.0 of floatValue(); 1 unless set.
    Q_PROPERTY(int valuesPerUnit READ valuesPerUnit WRITE setValuesPerUnit)

  public:
    explicit KyvarQuorviSlider(QWidget* parent = nullptr);
    ~KyvarQuorviSlider() override;

    [[nodiscard]] int valuesPerUnit() const { return m_valuesPerUnit; }
    /// Values below 1 count as 1.
    void setValuesPerUnit(int values);

    /// value() / valuesPerUnit().
    [[nodiscard]] float floatValue() const;
    /// Sets the nearest whole value, within the range. A value that is no number sets the minimum.
    void setFloatValue(float value);

    /// High enough for the whole handle.
    [[nodiscard]] QSize sizeHint() const override { return withWholeHandle(QSlider::sizeHint()); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return withWholeHandle(QSlider::minimumSizeHint());
    }

    /// The nearest whole step from the minimum, within the range.
    [[nodiscard]] int nearestStep(int value) const;

  signals:
    /// The user changed the value by mouse, key, wheel or an assistive program; value() is the new one.
    /// setValue() does not emit it.
    void valueChosen(int value);
    /// The left button was pressed on the slider. No value is chosen yet.
    void mouseDownBegan();
    /// What began ended, moved or not: the button was released, or the slider was hidden or disabled, or its
    /// window lost the focus, or the slider goes away. Once for each beginning.
    void mouseDownEnded();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// By the steps of the desktop a notch, also when the wheel or the touchpad turns less than a notch at a
    /// time: what is too little for a whole step waits for the rest.
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void snapToStep(int action);
    void announceChoice(int newValue);
    void endMouseDown();
    [[nodiscard]] QSize withWholeHandle(QSize size) const;

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    int m_valuesPerUnit = 1;
    bool m_userMoves = false;
    bool m_mouseIsDown = false;
    int m_turned = 0; ///< of the wheel, what did not make a whole step yet
};

} // namespace quorvi
