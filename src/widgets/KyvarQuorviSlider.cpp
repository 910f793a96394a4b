#include "widgets/KyvarQuorviSlider.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <cmath>
#include <utility>

#include "widgets/ThemeColours.h"

namespace quorvi {

KyvarQuorviSlider::KyvarQuorviSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    // Every way in which the user moves a slider passes through this signal before the value changes.
    connect(this, &QAbstractSlider::actionTriggered, this, &KyvarQuorviSlider::snapToStep);
    connect(this, &QAbstractSlider::valueChanged, this, &KyvarQuorviSlider::announceChoice);
    takeMarkColour();
}

KyvarQuorviSlider::~KyvarQuorviSlider() {
    endMouseDown();
}

void KyvarQuorviSlider::setValuesPerUnit(int values) {
    m_valuesPerUnit = qMax(1, values);
}

// Some styles request too little room for their handle next to tick marks, and cut it off. They draw it in
// the middle, so two more pixels move it by one.
QSize KyvarQuorviSlider::withWholeHandle(QSize size) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto isCut = [&](int height) {
        option.rect = QRect(0, 0, size.width(), height);
        const QRect handle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        return handle.top() < 0 || handle.bottom() >= height;
    };
    constexpr int most = 8; // of what is added
    int added = 0;
    while (added < most && isCut(size.height() + added))
        ++added;
    return {size.width(), size.height() + added};
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

void KyvarQuorviSlider::moveBySteps(int steps) {
    setSliderPosition(nearestStep(value()) + steps * qMax(1, singleStep()));
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
    // Before the slider's own handling, which may choose a value at once.
    if (event->button() == Qt::LeftButton && !m_mouseIsDown) {
        m_mouseIsDown = true;
        emit mouseDownBegan();
    }
    QSlider::mousePressEvent(event);
}

void KyvarQuorviSlider::mouseReleaseEvent(QMouseEvent* event) {
    QSlider::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        endMouseDown();
}

void KyvarQuorviSlider::endMouseDown() {
    if (std::exchange(m_mouseIsDown, false))
        emit mouseDownEnded();
}

void KyvarQuorviSlider::hideEvent(QHideEvent* event) {
    QSlider::hideEvent(event);
    endMouseDown();
}

void KyvarQuorviSlider::changeEvent(QEvent* event) {
    QSlider::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endMouseDown();
    else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        takeMarkColour();
}

void KyvarQuorviSlider::takeMarkColour() {
    const QPalette theme = QApplication::palette();
    QPalette own = palette();
    const QColor mark = markColour(theme);
    if (own.color(QPalette::Active, QPalette::Highlight) == mark)
        return;
    own.setColor(QPalette::Active, QPalette::Highlight, mark);
    own.setColor(QPalette::Inactive, QPalette::Highlight, mark);
    setPalette(own);
}

void KyvarQuorviSlider::paintEvent(QPaintEvent* event) {
    QSlider::paintEvent(event);
    if (isEnabled() && style()->objectName() == QLatin1String("breeze"))
        fillAgain();
}

void KyvarQuorviSlider::fillAgain() {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto partOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    const QRectF handle = partOf(QStyle::SC_SliderHandle);
    QRectF filled = partOf(QStyle::SC_SliderGroove);
    if (option.upsideDown)
        filled.setLeft(handle.center().x());
    else
        filled.setRight(handle.center().x());
    QPainterPath fill;
    fill.addRoundedRect(filled, filled.height() / 2, filled.height() / 2);
    QPainterPath knob;
    knob.addEllipse(handle);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(fill.subtracted(knob), palette().color(QPalette::Highlight));
}

bool KyvarQuorviSlider::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate)
        endMouseDown();
    return QSlider::event(event);
}

void KyvarQuorviSlider::wheelEvent(QWheelEvent* event) {
    event->accept();
    // Turning away from the user and to the left both increase the value, as usual in Qt.
    const QPoint angle = event->angleDelta();
    int turn = angle.y() != 0 ? angle.y() : -angle.x();
    if (event->inverted())
        turn = -turn;
    if ((turn < 0) != (m_turned < 0))
        m_turned = 0;
    const bool byPages = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    m_turned += turn * (byPages ? 1 : qMax(1, QApplication::wheelScrollLines()));
    const int steps = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned %= QWheelEvent::DefaultDeltasPerStep;
    const int stepsOfPage = qMax(1, pageStep() / qMax(1, singleStep()));
    if (steps != 0)
        moveBySteps(steps * (byPages ? stepsOfPage : 1));
}

} // namespace quorvi
