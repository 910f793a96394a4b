#include "widgets/NoticeBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

namespace quorvi {

/// Beside a text that says all there is to say. A label with a picture would be one thing more that screen
/// readers come upon, and one without a name.
class NoticeIcon : public QWidget {
  public:
    void set(const QIcon& icon, int size) {
        m_icon = icon;
        setFixedSize(size, size);
        update();
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

  private:
    QIcon m_icon;
};

namespace {

bool isSameNotice(const TextOfNotice& a, const TextOfNotice& b) {
    return a.text == b.text && a.sign == b.sign && bool(a.offer) == bool(b.offer);
}

QPushButton* plainButton(const QString& title, const char* name) {
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

NoticeBar::NoticeBar(const Titles& titles, QWidget& window)
    : QFrame(&window), m_icon(new NoticeIcon), m_text(new QLabel),
      m_offer(plainButton(titles.offer, "buttonNoticeOffer")),
      m_button(plainButton(titles.dismiss, "buttonNotice")) {
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("textNotice"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setForegroundRole(QPalette::Text);
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_icon);
    row->addWidget(m_text, 1);
    row->addWidget(m_offer);
    row->addWidget(m_button);
    connect(m_offer, &QPushButton::clicked, this, &NoticeBar::takeOffer);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (!m_notices.empty())
            withdraw(m_notices.begin()->first);
    });
    window.installEventFilter(this);
    hide();
}

void NoticeBar::tell(int number, const TextOfNotice& notice) {
    m_notices[number] = notice;
    update();
}

void NoticeBar::withdraw(int number) {
    if (m_notices.erase(number) != 0)
        update();
}

void NoticeBar::withdrawOffers() {
    if (std::erase_if(m_notices, [](const auto& notice) { return bool(notice.second.offer); }) != 0)
        update();
}

void NoticeBar::takeOffer() {
    if (m_notices.empty())
        return;
    const auto offer = m_notices.begin()->second.offer;
    withdraw(m_notices.begin()->first);
    if (offer)
        offer();
}

void NoticeBar::update() {
    const TextOfNotice first = m_notices.empty() ? TextOfNotice{} : m_notices.begin()->second;
    if (isSameNotice(first, m_shown))
        return;
    m_shown = first;
    if (m_notices.empty()) {
        hide();
        makeRoom(0);
        return;
    }
    const auto icon =
        first.sign == NoticeSign::warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    m_icon->set(style()->standardIcon(icon, nullptr, this), size);
    m_text->setText(first.text);
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
    if (event->type() == QEvent::Resize)
        place();
    return QFrame::eventFilter(watched, event);
}

void NoticeBar::place() {
    const QRect window = parentWidget()->rect();
    const int height = heightForWidth(window.width());
    setGeometry(0, window.height() - height, window.width(), height);
    if (!m_notices.empty())
        makeRoom(height);
}

/// The room is below what the window's layout holds, as far as that can be made smaller. It must not make the
/// window larger.
void NoticeBar::makeRoom(int height) {
    QLayout* layout = parentWidget()->layout();
    if (!layout)
        return;
    QMargins margins = layout->contentsMargins();
    if (m_usualMargin < 0)
        m_usualMargin = margins.bottom();
    const int needed = layout->hasHeightForWidth() ? layout->minimumHeightForWidth(parentWidget()->width())
                                                   : layout->totalMinimumSize().height();
    const int least = needed - margins.bottom() + m_usualMargin;
    const bool hasRoom = height > 0 && least + height <= parentWidget()->height();
    margins.setBottom(m_usualMargin + (hasRoom ? height : 0));
    layout->setContentsMargins(margins);
    if (height == 0)
        m_usualMargin = -1;
}

} // namespace quorvi
