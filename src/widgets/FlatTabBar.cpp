#include "widgets/FlatTabBar.h"

#include <QCursor>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QVariant>

#include <algorithm>
#include <utility>

#include "widgets/FlatButton.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

const FlatTabBar::Form FlatTabBar::kForms[3]{
    {.padding = metrics::tabPadding, .hasSigns = true},
    {.padding = metrics::narrowTabPadding, .hasSigns = true},
    {.padding = metrics::narrowTabPadding, .hasSigns = false},
};

namespace {

constexpr int kSignRoom = metrics::iconSize + metrics::rowGap;

} // namespace

FlatTabBar::FlatTabBar(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    setElideMode(Qt::ElideNone);
    setAttribute(Qt::WA_Hover);
}

void FlatTabBar::setSymbol(int tab, Symbol symbol) {
    setTabData(tab, int(symbol));
}

int FlatTabBar::widthOf(int tab, const Form& form) const {
    const int text = fontMetrics().size(Qt::TextShowMnemonic, tabText(tab)).width();
    return text + (form.hasSigns ? kSignRoom : 0) + 2 * form.padding;
}

int FlatTabBar::widthIn(const Form& form) const {
    int width = 0;
    for (int tab = 0; tab < count(); ++tab)
        width += widthOf(tab, form);
    return width;
}

void FlatTabBar::fitInto(int width) {
    const Form* form = std::find_if(
        std::begin(kForms), std::end(kForms) - 1, [&](const Form& wider) { return widthIn(wider) <= width; });
    if (form == m_form)
        return;
    m_form = form;
    updateGeometry();
    update();
}

QSize FlatTabBar::sizeHint() const {
    return {widthIn(*m_form), fontMetrics().height() + metrics::tabAir};
}

QSize FlatTabBar::minimumSizeHint() const {
    return {widthIn(*(std::end(kForms) - 1)), sizeHint().height()};
}

QSize FlatTabBar::tabSizeHint(int index) const {
    return {widthOf(index, *m_form), sizeHint().height()};
}

QSize FlatTabBar::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

bool FlatTabBar::event(QEvent* event) {
    const bool moves = event->type() == QEvent::HoverMove || event->type() == QEvent::HoverEnter;
    if (moves || event->type() == QEvent::HoverLeave) {
        const int pointedAt = moves ? tabAt(mapFromGlobal(QCursor::pos())) : -1;
        if (std::exchange(m_pointedAt, pointedAt) != pointedAt)
            update();
    }
    return QTabBar::event(event);
}

void FlatTabBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int tab = 0; tab < count(); ++tab)
        paintTab(painter, tab);
    painter.end();
    paintFocusFrame(*this, tabRect(currentIndex()).adjusted(0, 0, 0, -metrics::tabMark));
}

void FlatTabBar::paintTab(QPainter& painter, int tab) const {
    const bool isCurrent = tab == currentIndex();
    QPalette colours = palette();
    if (!isCurrent && tab != m_pointedAt)
        colours.setColor(QPalette::WindowText, mutedTextOnWindow(palette()));
    const QRect place = tabRect(tab);
    QRect content = place.adjusted(m_form->padding, 0, -m_form->padding, 0);
    if (m_form->hasSigns) {
        QRect sign = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
            QSize(metrics::iconSize, metrics::iconSize), content);
        paintSymbol(painter, Symbol(tabData(tab).toInt()), sign, colours.color(QPalette::WindowText));
        content = QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignVCenter,
            QSize(content.width() - kSignRoom, content.height()), content);
    }
    const bool underlines = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this);
    style()->drawItemText(&painter, content,
        Qt::AlignCenter | (underlines ? Qt::TextShowMnemonic : Qt::TextHideMnemonic), colours, isEnabled(),
        tabText(tab), QPalette::WindowText);
    if (!isCurrent)
        return;
    painter.fillRect(place.left(), place.bottom() + 1 - metrics::tabMark, place.width(), metrics::tabMark,
        markColour(palette()));
}

} // namespace quorvi
