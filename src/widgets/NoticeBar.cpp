#include "widgets/NoticeBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>

#include "widgets/ContentColumn.h"
#include "widgets/FlatButton.h"
#include "widgets/MessageFrame.h"
#include "widgets/Metrics.h"
#include "widgets/SignView.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

bool isSameNotice(const TextOfNotice& a, const TextOfNotice& b) {
    return a.text == b.text && a.sign == b.sign && bool(a.offer) == bool(b.offer) &&
           a.offerTitle == b.offerTitle;
}

QPushButton* flatButton(const char* name) {
    auto* button = new FlatButton;
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

NoticeBar::NoticeBar(const Titles& titles, QWidget& window, QWidget& page)
    : QWidget(&window), m_usualOffer(titles.offer), m_page(page), m_sign(new SignView), m_text(new QLabel),
      m_offer(flatButton("buttonNoticeOffer")), m_button(flatButton("buttonNotice")) {
    m_text->setObjectName(QStringLiteral("textNotice"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_offer->setText(titles.offer);
    m_button->setIcon(symbolIcon(Symbol::Close));
    m_button->setAccessibleName(titles.dismiss);
    m_button->setToolTip(titles.dismissTip);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(metrics::groupGap, metrics::fieldGap, metrics::fieldGap, metrics::fieldGap);
    row->setSpacing(metrics::rowGap);
    row->addWidget(m_sign);
    row->addWidget(m_text, 1);
    row->addWidget(m_offer);
    row->addWidget(m_button);
    connect(m_offer, &QPushButton::clicked, this, &NoticeBar::takeOffer);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (!m_notices.empty())
            withdraw(m_notices.begin()->first);
    });
    page.installEventFilter(this);
    if (auto* pages = qobject_cast<QStackedWidget*>(&page))
        connect(pages, &QStackedWidget::currentChanged, this, &NoticeBar::place);
    hide();
}

void NoticeBar::followInTabOrder(QWidget& widget) {
    setTabOrder(&widget, m_offer);
    setTabOrder(m_offer, m_button);
}

void NoticeBar::tell(int number, const TextOfNotice& notice) {
    m_notices[number] = notice;
    showFirst();
}

void NoticeBar::withdraw(int number) {
    endThose([number](const auto& notice) { return notice.first == number; });
}

void NoticeBar::withdrawOffers() {
    endThose([](const auto& notice) { return bool(notice.second.offer); });
}

void NoticeBar::endThose(const std::function<bool(const Notices::value_type&)>& chosen) {
    Notices ended;
    for (auto notice = m_notices.begin(); notice != m_notices.end();) {
        const auto next = std::next(notice);
        if (chosen(*notice))
            ended.insert(m_notices.extract(notice));
        notice = next;
    }
    if (ended.empty())
        return;
    showFirst();
    for (const auto& [number, notice] : ended)
        if (notice.ended)
            notice.ended();
}

void NoticeBar::takeOffer() {
    if (m_notices.empty())
        return;
    const auto offer = m_notices.begin()->second.offer;
    withdraw(m_notices.begin()->first);
    if (offer)
        offer();
}

void NoticeBar::showFirst() {
    const TextOfNotice first = m_notices.empty() ? TextOfNotice{} : m_notices.begin()->second;
    if (isSameNotice(first, m_shown))
        return;
    m_shown = first;
    if (m_notices.empty()) {
        hide();
        makeRoom(0);
        return;
    }
    m_sign->setSymbol(first.sign == NoticeSign::warning ? Symbol::Warning : Symbol::Information);
    m_text->setText(first.text);
    m_offer->setText(first.offerTitle.isEmpty() ? m_usualOffer : first.offerTitle);
    m_offer->setVisible(bool(first.offer));
    place();
    show();
    raise();
    m_offer->setAccessibleDescription(first.text);
    m_button->setAccessibleDescription(first.text);
    QAccessibleEvent alert(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

bool NoticeBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        place();
    return QWidget::eventFilter(watched, event);
}

void NoticeBar::place() {
    const ContentSpan span = contentSpan(m_page.width());
    const int height = heightForWidth(span.width);
    const QPoint corner = m_page.mapTo(parentWidget(), QPoint(span.margin, metrics::rowGap));
    setGeometry(QRect(corner, QSize(span.width, height)));
    if (!m_notices.empty())
        makeRoom(metrics::rowGap + height);
}

QWidget& NoticeBar::shownPage() const {
    const auto* pages = qobject_cast<QStackedWidget*>(&m_page);
    return pages && pages->currentWidget() ? *pages->currentWidget() : m_page;
}

/// As far as the page's content can shrink or scroll. It must not enlarge the window.
void NoticeBar::makeRoom(int height) {
    QWidget& page = shownPage();
    if (m_roomy && m_roomy != &page)
        m_roomy->setContentsMargins(0, 0, 0, 0);
    const int given = m_roomy == &page ? page.contentsMargins().top() : 0;
    m_roomy = &page;
    const int least = page.minimumSizeHint().height() - given;
    page.setContentsMargins(0, least + height <= page.height() ? height : 0, 0, 0);
}

void NoticeBar::paintEvent(QPaintEvent* /*event*/) {
    paintMessageGround(*this);
}

} // namespace quorvi
