#include "widgets/PressFade.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace quorvi {

namespace {

constexpr int kFrameMs = 16;

} // namespace

PressFade::PressFade(QWidget& view, const InputMarks& marks) : m_view(view), m_marks(marks) {
    m_frames.setInterval(kFrameMs);
    connect(&m_frames, &QTimer::timeout, this, &PressFade::step);
    connect(&marks, &InputMarks::changed, this, &PressFade::follow);
}

qreal PressFade::left(int input) const {
    const QElapsedTimer& since = m_since.at(std::size_t(input));
    return since.isValid() ? std::max(0.0, 1.0 - qreal(since.elapsed()) / duration) : 0.0;
}

void PressFade::follow() {
    const bool moves = m_view.isVisible() && m_view.isEnabled() &&
                       m_view.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &m_view) > 0;
    for (std::size_t input = 1; input <= mouseInputs; ++input) {
        const bool isPressed = m_marks.isPressed(int(input));
        const bool wasPressed = std::exchange(m_wasPressed.at(input), isPressed);
        if (isPressed)
            m_since.at(input).invalidate();
        else if (wasPressed && moves)
            m_since.at(input).start();
    }
    if (std::ranges::any_of(m_since, &QElapsedTimer::isValid))
        m_frames.start();
}

void PressFade::step() {
    bool fades = false;
    for (QElapsedTimer& since : m_since) {
        if (since.isValid() && since.elapsed() >= duration)
            since.invalidate();
        fades = fades || since.isValid();
    }
    if (!fades)
        m_frames.stop();
    emit changed();
}

} // namespace quorvi
