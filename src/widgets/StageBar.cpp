#include "widgets/StageBar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QVariantAnimation>

#include <algorithm>
#include <utility>

#include "widgets/AccessibleParts.h"
#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kTextPadding = 7;
constexpr int kLevelHeight = 4;
constexpr int kLevelGap = 2;
constexpr int kMoveTime = 150; // milliseconds
constexpr qreal kPointedShare = 0.08;

} // namespace

StageBar::StageBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void StageBar::setStages(const QList<StageField>& stages, int current) {
    const bool sameNumber = stages.size() == m_stages.size();
    m_stages = stages;
    const int before = std::exchange(m_current, isKnown(current) ? current : -1);
    m_focused = std::clamp(m_focused, 0, std::max(0, int(stages.size()) - 1));
    if (!sameNumber)
        forgetAccessibleParts(*this);
    if (!sameNumber || before != m_current) {
        delete std::exchange(m_motion, nullptr);
        m_ground = m_current;
    }
    updateGeometry();
    update();
}

QStringList StageBar::texts() const {
    QStringList texts;
    for (const StageField& stage : m_stages)
        texts << stage.text;
    return texts;
}

qreal StageBar::levelOf(int resolution) const {
    int highest = 1;
    for (const StageField& stage : m_stages)
        highest = qMax(highest, qMax(stage.x, stage.y));
    return qBound(0.0, qreal(resolution) / highest, 1.0);
}

void StageBar::moveGroundFrom(int stage) {
    const bool moves = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!moves || !isKnown(stage) || m_current < 0 || stage == m_current)
        return;
    delete std::exchange(m_motion, new QVariantAnimation(this));
    m_motion->setDuration(kMoveTime);
    m_motion->setEasingCurve(QEasingCurve::OutCubic);
    m_motion->setStartValue(qreal(stage));
    m_motion->setEndValue(qreal(m_current));
    connect(m_motion, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& place) { showGroundAt(place.toReal()); });
    m_ground = stage;
    m_motion->start();
}

void StageBar::showGroundAt(qreal place) {
    m_ground = place;
    update();
}

QFont StageBar::currentFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

QSize StageBar::sizeHint() const {
    return {360, 2 * fontMetrics().height() + metrics::stageBarAir};
}

QSize StageBar::minimumSizeHint() const {
    const QFontMetrics metrics(currentFont());
    int widest = 0;
    for (const StageField& stage : m_stages)
        widest = qMax(widest, metrics.horizontalAdvance(stage.text));
    const int wanted = int(m_stages.size()) * (widest + 2 * kTextPadding + 1);
    return {qMax(160, wanted), sizeHint().height()};
}

QRectF StageBar::placeOf(qreal stage) const {
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal width = frame.width() / qreal(m_stages.size());
    const qreal before = mirrored() ? qreal(m_stages.size()) - 1 - stage : stage;
    return {frame.left() + before * width, frame.top(), width, frame.height()};
}

QRect StageBar::cellOf(int stage) const {
    return isKnown(stage) ? placeOf(stage).toAlignedRect() : QRect();
}

int StageBar::stageAt(const QPoint& point) const {
    if (m_stages.isEmpty() || !rect().contains(point))
        return -1;
    const int fromLeft =
        std::min(point.x() * int(m_stages.size()) / std::max(1, width()), int(m_stages.size()) - 1);
    return mirrored() ? int(m_stages.size()) - 1 - fromLeft : fromLeft;
}

void StageBar::chooseStage(int stage) {
    if (isEnabled() && isKnown(stage))
        emit stageChosen(stage);
}

void StageBar::focusStage(int stage) {
    if (!isKnown(stage))
        return;
    m_focused = stage;
    tellOfPart(*this, stage, QAccessible::Focus);
    update();
}

void StageBar::pointAt(int stage) {
    if (std::exchange(m_pointed, stage) != stage)
        update();
}

void StageBar::mousePressEvent(QMouseEvent* event) {
    m_pressed = event->button() == Qt::LeftButton ? stageAt(event->pos()) : -1;
    focusStage(m_pressed);
}

void StageBar::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = std::exchange(m_pressed, -1);
    if (event->button() == Qt::LeftButton && pressed == stageAt(event->pos()))
        chooseStage(pressed);
}

void StageBar::mouseMoveEvent(QMouseEvent* event) {
    pointAt(stageAt(event->pos()));
}

void StageBar::leaveEvent(QEvent* event) {
    pointAt(-1);
    QWidget::leaveEvent(event);
}

void StageBar::keyPressEvent(QKeyEvent* event) {
    const int on = mirrored() ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Right:
        return focusStage(m_focused + on);
    case Qt::Key_Left:
        return focusStage(m_focused - on);
    case Qt::Key_Home:
        return focusStage(0);
    case Qt::Key_End:
        return focusStage(int(m_stages.size()) - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return chooseStage(m_focused);
    default:
        QWidget::keyPressEvent(event);
    }
}

void StageBar::focusInEvent(QFocusEvent* event) {
    const bool byKey = event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason;
    if (byKey && event->reason() != Qt::ActiveWindowFocusReason)
        focusStage(std::max(0, m_current));
    QWidget::focusInEvent(event);
    update();
}

void StageBar::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void StageBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LeftToRight); // X stands before Y in every language
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), metrics::corner, metrics::corner);
    painter.fillPath(outline, palette().color(QPalette::Base));
    painter.save();
    painter.setClipPath(outline);
    paintGround(painter);
    paintDividers(painter);
    for (int i = 0; i < m_stages.size(); ++i)
        paintStage(painter, i);
    painter.restore();
    painter.setPen(outlineColour(palette()));
    painter.drawPath(outline);
    if (hasFocus())
        paintFocus(painter);
}

void StageBar::paintGround(QPainter& painter) const {
    if (isEnabled() && isKnown(m_pointed) && m_pointed != m_current)
        painter.fillRect(placeOf(m_pointed),
            mixed(kPointedShare, palette().color(QPalette::Text), palette().color(QPalette::Base)));
    if (m_current >= 0)
        painter.fillRect(
            placeOf(m_ground), isEnabled() ? markGroundColour(palette()) : disabledMarkColour(palette()));
}

void StageBar::paintDividers(QPainter& painter) const {
    painter.setPen(outlineColour(palette()));
    for (int i = 1; i < m_stages.size(); ++i) {
        if (i == m_current || i - 1 == m_current)
            continue;
        const QRectF cell = placeOf(i);
        const qreal start = mirrored() ? cell.right() : cell.left();
        painter.drawLine(QPointF(start, cell.top()), QPointF(start, cell.bottom()));
    }
}

void StageBar::paintStage(QPainter& painter, int index) const {
    const StageField& stage = m_stages.at(index);
    const bool current = index == m_current && isEnabled() && m_ground == m_current;
    const QRectF inner = placeOf(index).adjusted(kTextPadding, 0, -kTextPadding, 0);
    const int levels = 2 * kLevelHeight + kLevelGap;
    const QRectF above = inner.adjusted(0, kTextPadding - 2, 0, -kTextPadding - levels);
    painter.setFont(index == m_current ? currentFont() : font());
    painter.setPen(palette().color(current ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(above, Qt::AlignCenter,
        painter.fontMetrics().elidedText(stage.text, Qt::ElideRight, int(inner.width())));

    const QColor level = current ? palette().color(QPalette::HighlightedText) : mutedTextColour(palette());
    QRectF line(inner.left(), inner.bottom() - kTextPadding, inner.width(), kLevelHeight);
    const auto paintLevel = [&](int resolution) {
        line.setWidth(qMax(1.0, inner.width() * levelOf(resolution)));
        mirrored() ? line.moveRight(inner.right()) : line.moveLeft(inner.left());
        painter.fillRect(line, level);
    };
    if (stage.x == stage.y) {
        line.moveTop(line.top() - kLevelHeight / 2.0);
        paintLevel(stage.x);
        return;
    }
    for (const int resolution : {stage.y, stage.x}) {
        paintLevel(resolution);
        line.moveTop(line.top() - kLevelHeight - kLevelGap);
    }
}

void StageBar::paintFocus(QPainter& painter) const {
    constexpr qreal half = metrics::focusFrame / 2.0;
    const QRectF whole = isKnown(m_focused) ? placeOf(m_focused) : QRectF(rect());
    const QRectF cell = whole.adjusted(half + 1, half + 1, -half - 1, -half - 1);
    const bool onGround = m_focused == m_current;
    painter.setPen(QPen(
        onGround ? palette().color(QPalette::HighlightedText) : markColour(palette()), metrics::focusFrame));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cell, metrics::corner, metrics::corner);
}

bool StageBar::mirrored() const {
    return layoutDirection() == Qt::RightToLeft;
}

} // namespace quorvi
