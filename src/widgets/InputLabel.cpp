#include "widgets/InputLabel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

#include "widgets/Metrics.h"
#include "widgets/NumberBadge.h"
#include "widgets/ShownText.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kNoteShare = 0.9; // of the label's letters
constexpr qreal kLeastNote = 9.0; // points

} // namespace

void InputLabel::setMarked(bool marked) {
    if (std::exchange(m_marked, marked) != marked)
        update();
}

void InputLabel::setNote(const QString& note) {
    if (std::exchange(m_note, note) != note)
        update();
}

/// The digit behind the ampersand.
int InputLabel::number() const {
    const QString label = text();
    const auto mark = label.indexOf(QLatin1Char('&'));
    return mark < 0 ? 0 : label.mid(mark + 1, 1).toInt();
}

QString InputLabel::name() const {
    const QString label = text();
    return label.mid(label.indexOf(QLatin1Char('&')) + 2).trimmed();
}

int InputLabel::badgeSize() const {
    return std::max(metrics::badge, fontMetrics().height());
}

int InputLabel::widthOfName() const {
    return fontMetrics().horizontalAdvance(name());
}

QFont InputLabel::noteFont() const {
    QFont note = font();
    if (note.pointSizeF() > 0)
        note.setPointSizeF(std::min(note.pointSizeF(), std::max(kLeastNote, note.pointSizeF() * kNoteShare)));
    else
        note.setPixelSize(qRound(note.pixelSize() * kNoteShare));
    return note;
}

int InputLabel::widthOfNote() const {
    return QFontMetrics(noteFont()).horizontalAdvance(m_note);
}

QSize InputLabel::sizeHint() const {
    ensurePolished();
    const int badge = badgeSize();
    return {badge + metrics::badgeGap + widthOfName(), std::max(badge, fontMetrics().height())};
}

bool InputLabel::showsNote() const {
    return !m_note.isEmpty() && sizeHint().width() + metrics::rowGap + widthOfNote() <= width();
}

void InputLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPalette colours = palette();
    colours.setCurrentColorGroup(isEnabled() ? QPalette::Active : QPalette::Disabled);
    const auto placed = [this](int from, int wide) {
        return QStyle::visualRect(layoutDirection(), rect(), QRect(from, 0, wide, height()));
    };
    const auto side = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
    const int badge = badgeSize();
    paintBadge(
        painter, colours, QRectF(placed(0, badge)).center(), badge / 2.0, number(), m_marked ? 1.0 : 0.0);
    const int begin = badge + metrics::badgeGap;
    painter.setFont(font());
    painter.setPen(colours.color(QPalette::WindowText));
    painter.drawText(placed(begin, width() - begin), side,
        fontMetrics().elidedText(name(), Qt::ElideMiddle, width() - begin));
    if (!showsNote())
        return;
    painter.setFont(noteFont());
    painter.setPen(mutedTextOnWindow(colours));
    const int after = begin + widthOfName() + metrics::rowGap;
    painter.drawText(placed(after, width() - after), side, m_note);
}

} // namespace quorvi
