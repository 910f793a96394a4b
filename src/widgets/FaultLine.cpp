#include "widgets/FaultLine.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

#include "widgets/Metrics.h"
#include "widgets/WarningSign.h"
#include "widgets/WrappedLabel.h"

namespace quorvi {

/// As high as a line of text.
class FaultSign : public QWidget {
  public:
    [[nodiscard]] QSize sizeHint() const override {
        const int side = fontMetrics().height();
        return {side, side};
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        drawWarningSign(painter, rect(), palette().color(QPalette::WindowText));
    }
};

FaultLine::FaultLine(QWidget* parent)
    : QWidget(parent), m_contents(new QWidget(this)), m_sign(new FaultSign), m_text(new WrappedLabel),
      m_button(new QPushButton), m_row(new QHBoxLayout) {
    m_sign->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_text->setObjectName(QStringLiteral("textFault"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_button->setObjectName(QStringLiteral("quorviButtonMend"));
    m_button->setAutoDefault(false);
    m_row->setSpacing(metrics::rowGap);
    m_row->addWidget(m_text, 1);
    m_row->addWidget(m_button);
    auto* row = new QHBoxLayout(m_contents);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::rowGap);
    row->addWidget(m_sign);
    row->addLayout(m_row, 1);
    QSizePolicy policy = m_contents->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_contents->setSizePolicy(policy);
    auto* whole = new QHBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_contents);
    connect(m_button, &QPushButton::clicked, this, &FaultLine::mendingChosen);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_button); // its place in the order of the keys is that of this
    hide();
}

void FaultLine::say(const QString& text, const QString& buttonTitle) {
    m_text->setText(text);
    setButtonTitle(buttonTitle);
    setButtonPurpose(text);
    m_button->setVisible(!buttonTitle.isEmpty());
    m_contents->show();
    show();
    placeButton();
}

void FaultLine::placeButton() {
    constexpr int lines = 2; // no higher than the button beside it
    const int room = width() - m_sign->sizeHint().width() - metrics::rowGap;
    const int beside = room - metrics::rowGap - m_button->sizeHint().width();
    const bool fits =
        m_button->isHidden() || m_text->heightForWidth(beside) <= lines * m_text->fontMetrics().lineSpacing();
    m_row->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_row->setAlignment(m_button, fits ? Qt::Alignment() : Qt::AlignLeft);
}

void FaultLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeButton();
}

void FaultLine::clear() {
    m_text->clear();
    hide();
}

void FaultLine::pause() {
    m_contents->hide();
}

QString FaultLine::buttonTitle() const {
    return m_button->text();
}

void FaultLine::setButtonTitle(const QString& title) {
    m_button->setText(title);
    m_button->setAccessibleName(title);
}

QString FaultLine::buttonPurpose() const {
    return m_button->accessibleDescription();
}

void FaultLine::setButtonPurpose(const QString& purpose) {
    m_button->setAccessibleDescription(purpose);
}

QString FaultLine::text() const {
    return isVisibleTo(parentWidget()) && m_contents->isVisibleTo(this) ? m_text->text() : QString();
}

bool FaultLine::hasFocusedButton() const {
    return m_button->hasFocus();
}

} // namespace quorvi
