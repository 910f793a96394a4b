#include "widgets/ListButtonRow.h"

#include <QEvent>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <numeric>
#include <utility>

#include "widgets/Metrics.h"

namespace quorvi {

namespace {

/// What stands between so many buttons.
int gapsOf(qsizetype buttons) {
    return metrics::fieldGap * std::max(0, int(buttons) - 1);
}

} // namespace

ListButtonRow::ListButtonRow(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QList<QPushButton*> ListButtonRow::buttons() const {
    return findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
}

QStringList ListButtonRow::shownWords() const {
    QStringList words;
    for (const QPushButton* button : buttons())
        words << button->text();
    return words;
}

/// The words may come after the buttons have been asked for their sizes.
const ListButtonRow::Sizes& ListButtonRow::sizes() const {
    if (!m_showsWords || m_sizes.words == shownWords())
        return m_sizes;
    m_sizes = Sizes();
    m_sizes.words = shownWords();
    for (const QPushButton* button : buttons()) {
        const QSize size = button->sizeHint();
        const QFontMetrics font = button->fontMetrics();
        // Not every style leaves room beside the word of a flat button.
        m_sizes.widths.push_back(size.width() + font.averageCharWidth());
        m_sizes.height = std::max(m_sizes.height, size.height());
        m_sizes.sign =
            std::max({m_sizes.sign, size.height(), size.width() - font.horizontalAdvance(button->text())});
    }
    return m_sizes;
}

QSize ListButtonRow::sizeHint() const {
    const auto& widths = sizes().widths;
    return {std::accumulate(widths.begin(), widths.end(), gapsOf(qsizetype(widths.size()))), sizes().height};
}

QSize ListButtonRow::minimumSizeHint() const {
    const auto count = int(sizes().widths.size());
    return {count * sizes().sign + gapsOf(count), sizes().height};
}

void ListButtonRow::showWords(bool shown) {
    if (std::exchange(m_showsWords, shown) == shown)
        return;
    int at = 0;
    for (QPushButton* button : buttons())
        button->setText(shown ? m_sizes.words.value(at++) : QString());
}

// Before it is shown its words may not have come yet.
void ListButtonRow::place() {
    if (!isVisible())
        return;
    const Sizes& needed = sizes();
    if (std::exchange(m_told, sizeHint()) != sizeHint())
        updateGeometry();
    showWords(width() >= sizeHint().width());
    int begin = 0;
    std::size_t at = 0;
    for (QPushButton* button : buttons()) {
        const int buttonWidth = m_showsWords ? needed.widths.at(at) : needed.sign;
        const QRect place(begin, (height() - needed.height) / 2, buttonWidth, needed.height);
        button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
        begin += buttonWidth + metrics::fieldGap;
        ++at;
    }
}

bool ListButtonRow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        showWords(true);
        m_sizes.words.clear();
        updateGeometry();
        place();
        break;
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::LayoutDirectionChange:
        place();
        break;
    default:
        break;
    }
    return handled;
}

} // namespace quorvi
