// A user's drags and wheel turns, as events of a slider.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

namespace quorvi::test {

/// The slider's handle, in the slider's coordinates.
[[nodiscard]] inline QRect handleRectangle(const QSlider& slider) {
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.minimum = slider.minimum();
    option.maximum = slider.maximum();
    option.sliderPosition = slider.sliderPosition();
    option.sliderValue = slider.value();
    option.orientation = Qt::Horizontal;
    option.subControls = QStyle::SC_All;
    option.tickPosition = slider.tickPosition();
    option.tickInterval = slider.tickInterval();
    return slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
}

[[nodiscard]] inline QPoint handleOf(const QSlider& slider) {
    return handleRectangle(slider).center();
}

/// Moves the pointer there with the left button down. QTest::mouseMove() moves the pointer of the display in
/// older versions, and not all displays have one.
inline void dragTo(QSlider& slider, QPoint place) {
    const QPointF position(place);
    QMouseEvent move(QEvent::MouseMove, position, position, slider.mapToGlobal(place), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&slider, &move);
}

/// The angle is in eighths of a degree, 120 for a notch, positive away from the user.
inline void turnWheel(QSlider& slider, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF middle = QRectF(slider.rect()).center();
    QWheelEvent turn(middle, slider.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, angle), Qt::NoButton,
        modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &turn);
}

} // namespace quorvi::test
