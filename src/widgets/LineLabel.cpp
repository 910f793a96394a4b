#include "widgets/LineLabel.h"

namespace quorvi {

namespace {

/// More than any text of one line is wide.
constexpr QRect kRoom(0, 0, 2000, 2000);

/// As large as the inherited label says it is.
QSize sizeOf(const QString& text, int mnemonic, const QFontMetrics& font) {
    if (text.isEmpty())
        return {font.averageCharWidth(), font.lineSpacing()};
    return font.boundingRect(kRoom, Qt::TextExpandTabs | mnemonic, text).size();
}

} // namespace

QSize LineLabel::sizeHint() const {
    ensurePolished();
    // As the inherited label draws it: "&" marks a key where there is something that the key leads to.
    const int mnemonic = buddy() && text().contains(QLatin1Char('&')) ? Qt::TextShowMnemonic : 0;
    const QFontMetrics font = fontMetrics();
    if (!m_measured || m_measured->text != text() || m_measured->mnemonic != mnemonic ||
        m_measured->font != font)
        m_measured = Measured{text(), mnemonic, font, sizeOf(text(), mnemonic, font)};
    return m_measured->size.expandedTo(minimumSize());
}

} // namespace quorvi
