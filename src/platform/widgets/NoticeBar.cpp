#include "platform/widgets/NoticeBar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace quorvi {

NoticeBar::NoticeBar(const QString& buttonTitle, QWidget& window)
    : QFrame(&window), m_text(new QLabel), m_button(new QPushButton(buttonTitle)) {
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    auto* sign = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size, size));
    m_text->setObjectName(QStringLiteral("textNotice"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setForegroundRole(QPalette::Text);
    m_button->setObjectName(QStringLiteral("buttonNotice"));
    m_button->setAutoDefault(false);
    auto* row = new QHBoxLayout(this);
    row->addWidget(sign);
    row->addWidget(m_text, 1);
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, &QWidget::hide);
    window.installEventFilter(this);
    hide();
}

void NoticeBar::tell(const QString& text) {
    m_text->setText(text);
    place();
    show();
    raise();
    m_button->setAccessibleDescription(text);
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
