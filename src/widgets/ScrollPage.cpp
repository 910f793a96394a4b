#include "widgets/ScrollPage.h"

#include <QApplication>
#include <QChildEvent>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

#include "widgets/Metrics.h"

namespace quorvi {

ScrollPage::ScrollPage(QWidget* parent) : QWidget(parent) {}

ScrollPage::~ScrollPage() {
    // A window that goes with its page gives its focus away then.
    disconnect(qApp, nullptr, this, nullptr);
}

void ScrollPage::childEvent(QChildEvent* event) {
    if (event->added() && !m_content && event->child()->isWidgetType()) {
        m_content = static_cast<QWidget*>(event->child());
        m_content->installEventFilter(this);
    }
    QWidget::childEvent(event);
}

bool ScrollPage::scrolls() const {
    return m_area && m_area->verticalScrollBar()->maximum() > 0;
}

QSize ScrollPage::sizeHint() const {
    return m_content ? m_content->sizeHint() : QSize();
}

QSize ScrollPage::minimumSizeHint() const {
    if (!m_content)
        return {};
    const QMargins margins = contentsMargins();
    const int needed = m_content->minimumSizeHint().width() + (scrolls() ? metrics::columnGap : 0);
    return {m_narrow ? needed : std::min(needed, metrics::leastWidth),
        metrics::leastPage + margins.top() + margins.bottom()};
}

int ScrollPage::leastHeight(int width) const {
    const QLayout* layout = m_content->layout();
    const int least = layout->totalMinimumSize().height();
    return layout->hasHeightForWidth() ? std::max(least, layout->minimumHeightForWidth(width)) : least;
}

void ScrollPage::chooseForm() {
    if (!m_narrow)
        m_usualWidth = m_content->minimumSizeHint().width();
    const int bar = m_area ? m_area->verticalScrollBar()->sizeHint().width() : 0;
    const bool narrow = width() < std::max(metrics::narrowWidth, m_usualWidth + bar);
    if (narrow == m_narrow)
        return;
    m_narrow = narrow;
    emit narrowChanged(narrow);
    updateGeometry();
}

void ScrollPage::makeArea() {
    QWidget* const focused = window()->focusWidget(); // the content loses it with its parent
    m_area = new QScrollArea(this);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus); // what is in it takes the focus
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_content);
    connect(qApp, &QApplication::focusChanged, this,
        [this](QWidget* /*before*/, QWidget* now) { showFocused(now); });
    m_area->show();
    if (focused && m_content->isAncestorOf(focused))
        focused->setFocus();
}

void ScrollPage::place() {
    if (!m_content || !m_content->layout())
        return;
    chooseForm();
    const QRect room = contentsRect();
    const bool fits = leastHeight(room.width()) <= room.height();
    if (!fits && !m_area)
        makeArea();
    if (!m_area)
        return m_content->setGeometry(room);
    m_area->setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    m_area->setGeometry(room);
    const int width = fits ? room.width() : m_area->viewport()->width();
    m_content->resize(width, fits ? room.height() : leastHeight(width));
}

void ScrollPage::placeIfShown() {
    if (isVisible())
        place();
}

/// By a key: under the pointer, nothing may move away.
void ScrollPage::showFocused(QWidget* focused) {
    if (focused && QGuiApplication::mouseButtons() == Qt::NoButton && m_content &&
        m_content->isAncestorOf(focused))
        m_area->ensureWidgetVisible(focused, 0, metrics::rowGap);
}

bool ScrollPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_content && event->type() == QEvent::LayoutRequest) {
        placeIfShown();
        updateGeometry();
    }
    return QWidget::eventFilter(watched, event);
}

// A hidden page hears of its size just before it is shown, and then its content must have its own: at
// another width its texts would ask for other heights.
void ScrollPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void ScrollPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    place();
}

void ScrollPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        placeIfShown();
}

bool ScrollPage::event(QEvent* event) {
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::ContentsRectChange)
        placeIfShown();
    return done;
}

} // namespace quorvi
