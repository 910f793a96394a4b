#include "widgets/LineLabel.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyle>

#include <algorithm>

namespace quorvi {

namespace {

/// Wider than any text of one line.
constexpr QRect kRoom(0, 0, 2000, 2000);

/// The same size as QLabel's.
QSize sizeOf(const QString& text, int mnemonic, const QFontMetrics& font) {
    if (text.isEmpty())
        return {font.averageCharWidth(), font.lineSpacing()};
    return font.boundingRect(kRoom, Qt::TextExpandTabs | mnemonic, text).size();
}

/// The text without what marks its key: "&Steps", or "(&S)" behind a text of other letters.
QString withoutKey(QString text) {
    static const QRegularExpression behind(QStringLiteral("\\s*\\(&[^&]\\)"));
    static const QRegularExpression within(QStringLiteral("&(.)"));
    return text.remove(behind).replace(within, QStringLiteral("\\1"));
}

} // namespace

QSize LineLabel::sizeHint() const {
    ensurePolished();
    // Like QLabel: "&" marks a key if there is a buddy for it.
    const int mnemonic = buddy() && text().contains(QLatin1Char('&')) ? Qt::TextShowMnemonic : 0;
    const QFontMetrics font = fontMetrics();
    if (!m_measured || m_measured->text != text() || m_measured->mnemonic != mnemonic ||
        m_measured->font != font)
        m_measured = Measured{text(), mnemonic, font, sizeOf(text(), mnemonic, font)};
    return m_measured->size.expandedTo(minimumSize());
}

QStringList LineLabel::forms() const {
    const QString between = QStringLiteral(" · ");
    QStringList forms{buddy() ? withoutKey(text()) : text()};
    while (forms.last().contains(between))
        forms << forms.last().left(forms.last().lastIndexOf(between));
    if (!m_shortText.isEmpty())
        forms << m_shortText;
    return forms;
}

int LineLabel::leastWidth() const {
    return fontMetrics().horizontalAdvance(forms().last());
}

QString LineLabel::shownText() const {
    const QFontMetrics font = fontMetrics();
    const QStringList all = forms();
    const auto fits = [&](const QString& form) { return font.horizontalAdvance(form) <= width(); };
    const auto longest = std::ranges::find_if(all, fits);
    return longest != all.end() ? *longest : font.elidedText(all.last(), Qt::ElideRight, width());
}

void LineLabel::paintEvent(QPaintEvent* event) {
    if (width() >= sizeHint().width()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setLayoutDirection(layoutDirection()); // that of a host's window can be another
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemText(&painter, rect(), int(side), palette(), isEnabled(), shownText(), foregroundRole());
}

} // namespace quorvi
