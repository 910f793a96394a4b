#include "widgets/ProfileButton.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>

#include <algorithm>

#include "widgets/Metrics.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kPadding = metrics::rowGap; // at the sides, as other flat buttons have
constexpr int kLeastLetters = 6;          // of a name that is cut

} // namespace

ProfileButton::ProfileButton(QWidget* parent) : MenuButton(parent) {
    setFlat(true);
}

void ProfileButton::setRunning(bool runs) {
    if (std::exchange(m_runs, runs) != runs)
        update();
}

QLabel* ProfileButton::label() const {
    return findChild<QLabel*>();
}

/// The sign keeps its room while another profile runs, so that the title does not move.
int ProfileButton::signRoom() const {
    return isEnabled() ? metrics::iconSize + metrics::fieldGap : 0;
}

QSize ProfileButton::around(int labelWidth) const {
    return {labelWidth + 2 * (kPadding + signRoom()), label()->sizeHint().height() + 2 * metrics::fieldGap};
}

QSize ProfileButton::sizeHint() const {
    return around(label()->sizeHint().width());
}

QSize ProfileButton::minimumSizeHint() const {
    const int least = kLeastLetters * label()->fontMetrics().averageCharWidth();
    return around(std::min(least, label()->sizeHint().width()));
}

void ProfileButton::placeLabel() {
    if (!label())
        return; // while it is made
    const QRect content = rect().adjusted(kPadding + signRoom(), 0, -kPadding - signRoom(), 0);
    const int width = std::min(content.width(), label()->sizeHint().width());
    label()->setGeometry(QStyle::alignedRect(
        layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, QSize(width, content.height()), content));
}

/// Without a mouse the button opens nothing, but its title is what the window has to say.
void ProfileButton::keepColour() {
    if (!label())
        return; // while it is made
    QPalette colours = label()->palette();
    const QPalette::ColorRole role = label()->foregroundRole();
    // All groups: Qt 5 no longer takes the role from the button's palette once one of them is set.
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        colours.setColor(group, role, palette().color(group, role));
    colours.setColor(QPalette::Disabled, role, palette().color(QPalette::Active, role));
    label()->setPalette(colours);
}

bool ProfileButton::event(QEvent* event) {
    const bool handled = MenuButton::event(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::Show)
        keepColour();
    switch (event->type()) {
    case QEvent::LayoutRequest: // the label has another text
    case QEvent::EnabledChange:
        updateGeometry();
        [[fallthrough]];
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::LayoutDirectionChange:
        placeLabel();
        update();
        break;
    default:
        break;
    }
    return handled;
}

void ProfileButton::paintEvent(QPaintEvent* event) {
    MenuButton::paintEvent(event);
    if (!isEnabled())
        return;
    QPainter painter(this);
    const QColor text = palette().color(QPalette::WindowText);
    const auto beside = [&](const QRect& place, int offset) {
        const QRect sign(
            place.left() + offset, (height() - metrics::iconSize) / 2, metrics::iconSize, metrics::iconSize);
        return QStyle::visualRect(layoutDirection(), rect(), sign);
    };
    // As if from the left; the pictures of both directions are each other's mirror.
    const QRect title = QStyle::visualRect(layoutDirection(), rect(), label()->geometry());
    if (m_runs)
        paintSymbol(painter, Symbol::Play, beside(title, -signRoom()), markColour(palette()));
    paintSymbol(painter, Symbol::Opens, beside(title, title.width() + metrics::fieldGap), text);
}

} // namespace quorvi
