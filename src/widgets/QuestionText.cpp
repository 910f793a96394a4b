#include "widgets/QuestionText.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

#include "widgets/Metrics.h"

namespace quorvi {

namespace {

constexpr int kAnyHeight = 10000;
constexpr int kLeastWidth = 300;

int wrappedHeight(const QFont& font, const QString& text, int width) {
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, kAnyHeight), Qt::TextWordWrap, text).height();
}

} // namespace

QuestionText::QuestionText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QString QuestionText::heading() const {
    return text().section(QLatin1Char('\n'), 0, 0);
}

QString QuestionText::rest() const {
    return text().section(QLatin1Char('\n'), 1).trimmed();
}

QFont QuestionText::headingFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int QuestionText::headingHeight(int width) const {
    return wrappedHeight(headingFont(), heading(), width);
}

int QuestionText::heightForWidth(int width) const {
    const QString below = rest();
    return headingHeight(width) +
           (below.isEmpty() ? 0 : metrics::rowGap + wrappedHeight(font(), below, width));
}

QSize QuestionText::sizeHint() const {
    const int width = std::max(minimumWidth(), kLeastWidth);
    return {width, heightForWidth(width)};
}

void QuestionText::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int flags =
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignTop)) | Qt::TextWordWrap;
    painter.setFont(headingFont());
    style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), heading(), QPalette::WindowText);
    painter.setFont(font());
    const QRect below = rect().adjusted(0, headingHeight(width()) + metrics::rowGap, 0, 0);
    style()->drawItemText(&painter, below, flags, palette(), isEnabled(), rest(), QPalette::WindowText);
}

} // namespace quorvi
