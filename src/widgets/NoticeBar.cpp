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

NoticeBar::NoticeBar(const QString& buttonTitle, QWidget& window)
    : QFrame(&window), m_icon(new NoticeIcon), m_text(new QLabel), m_button(new QPushButton(buttonTitle)) {
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("textNotice"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setForegroundRole(QPalette::Text);
    m_button->setObjectName(QStringLiteral("buttonNotice"));
    m_button->setAutoDefault(false);
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_icon);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (!m_notices.empty())
            withdraw(m_notices.begin()->first);
    });
    window.installEventFilter(this);
    hide();
}

void NoticeBar::tell(int number, const QString& text, NoticeSign sign) {
    m_notices[number] = {text, sign};
    update();
}

void NoticeBar::withdraw(int number) {
    if (m_notices.erase(number) != 0)
        update();
}

void NoticeBar::update() {
    const Notice first = m_notices.empty() ? Notice{} : m_notices.begin()->second;
    if (first == m_shown)
        return;
    m_shown = first;
    if (m_notices.empty()) {
        hide();
        return;
    }
    const auto icon =
        first.sign == NoticeSign::warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    m_icon->set(style()->standardIcon(icon, nullptr, this), size);
    m_text->setText(first.text);
    place();
    show();
    raise();
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
}

} // namespace quorvi
