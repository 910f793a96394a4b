#include "platform/widgets/KyvarQuorviSlider.h"

#include <QMouseEvent>
#include <cmath>

namespace quorvi {

KyvarQuorviSlider::KyvarQuorviSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    // Every way in which the user moves a slider passes through this signal before the value changes.
    connect(this, &QAbstractSlider::actionTriggered, this, &KyvarQuorviSlider::snapToStep);
    connect(this, &QAbstractSlider::valueChanged, this, &KyvarQuorviSlider::announceChoice);
}

void KyvarQuorviSlider::setValuesPerUnit(int values) {
    m_valuesPerUnit = qMax(1, values);
}

float KyvarQuorviSlider::floatValue() const {
    return float(value()) / float(m_valuesPerUnit);
}

void KyvarQuorviSlider::setFloatValue(float value) {
    const double whole = std::round(double(value) * m_valuesPerUnit);
    setValue(whole >= minimum() ? int(qMin(whole, double(maximum()))) : minimum());
}

int KyvarQuorviSlider::nearestStep(int value) const {
    const int step = qMax(1, singleStep());
    const int lastStep = (maximum() - minimum()) / step;
    const int nearest = (value - minimum() + step / 2) / step;
    return minimum() + step * qBound(0, nearest, lastStep);
}

// A step up from between two steps ends on the next one, not on the one after it.
void KyvarQuorviSlider::snapToStep(int action) {
    const int step = qMax(1, singleStep());
    int position = nearestStep(sliderPosition());
    const bool up = action == SliderSingleStepAdd || action == SliderPageStepAdd;
    const bool down = action == SliderSingleStepSub || action == SliderPageStepSub;
    if (up && position > sliderPosition())
        position = nearestStep(position - step);
    else if (down && position < sliderPosition())
        position = nearestStep(position + step);
    setSliderPosition(position);
    m_userMoves = sliderPosition() != value();
}

void KyvarQuorviSlider::announceChoice(int newValue) {
    if (!m_userMoves)
        return;
    m_userMoves = false;
    emit valueChosen(newValue);
}

void KyvarQuorviSlider::mousePressEvent(QMouseEvent* event) {
    m_mouseIsDown = m_mouseIsDown || event->button() == Qt::LeftButton;
    QSlider::mousePressEvent(event);
}

void KyvarQuorviSlider::mouseReleaseEvent(QMouseEvent* event) {
    QSlider::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !m_mouseIsDown)
        return;
    m_mouseIsDown = false;
    emit mouseDownEnded();
}

} // namespace quorvi
