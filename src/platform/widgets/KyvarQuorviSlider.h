// The panel's slider. The user moves it by whole steps only, because the mouse stores a sensitivity as a
// number of steps; a value that the program sets is shown as it is.
#pragma once

#include <QSlider>

namespace quorvi {

class KyvarQuorviSlider : public QSlider {
    Q_OBJECT
    /// How many whole values make 1.0 of floatValue(); 1 unless set.
    Q_PROPERTY(int valuesPerUnit READ valuesPerUnit WRITE setValuesPerUnit)

  public:
    explicit KyvarQuorviSlider(QWidget* parent = nullptr);

    [[nodiscard]] int valuesPerUnit() const { return m_valuesPerUnit; }
    /// Values below 1 count as 1.
    void setValuesPerUnit(int values);

    /// value() / valuesPerUnit().
    [[nodiscard]] float floatValue() const;
    /// Sets the nearest whole value, within the range. A value that is no number sets the minimum.
    void setFloatValue(float value);

    /// The nearest whole step from the minimum, within the range.
    [[nodiscard]] int nearestStep(int value) const;

  signals:
    /// The user changed the value by mouse, key or wheel; value() is the new one. setValue() does not emit
    /// it.
    void valueChosen(int value);
    /// The left button was released after it was pressed on the slider, moved or not.
    void mouseDownEnded();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void snapToStep(int action);
    void announceChoice(int newValue);

    int m_valuesPerUnit = 1;
    bool m_userMoves = false;
    bool m_mouseIsDown = false;
};

} // namespace quorvi
