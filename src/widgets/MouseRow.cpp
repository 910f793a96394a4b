#include "widgets/MouseRow.h"

#include <QEvent>
#include <QGridLayout>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <utility>

#include "widgets/CheckBox.h"
#include "widgets/FilledText.h"
#include "widgets/Metrics.h"
#include "widgets/ShownText.h"
#include "widgets/WrappedLabel.h"

namespace quorvi {

namespace {

constexpr int kLineSpacing = 1;
constexpr qreal kNoteScale = 0.9; // like the panel's other notes

/// The start of the box's text, with which the text below is aligned.
int indentOf(const QCheckBox& box) {
    return box.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box) +
           box.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &box);
}

} // namespace

MouseRow::MouseRow(const QString& id, int number, Texts texts)
    : m_id(id), m_texts(std::move(texts)), m_box(new CheckBox), m_button(new QPushButton(m_texts.setUp)),
      m_detail(new WrappedLabel) {
    m_box->setObjectName(QStringLiteral("quorviBoxMouse%1").arg(number));
    m_box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_box->setToolTip(m_texts.boxDescription);
    m_button->setObjectName(QStringLiteral("quorviButtonSetUpMouse%1").arg(number));
    m_button->setAutoDefault(false);
    m_detail->setTextFormat(Qt::PlainText);
    m_detail->setWordWrap(true);
    QFont note = font();
    note.pointSizeF() > 0 ? note.setPointSizeF(note.pointSizeF() * kNoteScale)
                          : note.setPixelSize(qRound(note.pixelSize() * kNoteScale));
    m_detail->setFont(note);
    m_detail->setForegroundRole(QPalette::PlaceholderText); // the colour of hints
    m_detail->setIndent(indentOf(*m_box));                  // below the name
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(metrics::groupGap);
    layout->setVerticalSpacing(kLineSpacing);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_box, 0, 0);
    layout->addWidget(m_detail, 1, 0);
    layout->addWidget(m_button, 0, 1, 2, 1, Qt::AlignVCenter);
    m_box->installEventFilter(this);
    connect(m_box, &QCheckBox::clicked, this, &MouseRow::useChosen);
    connect(m_button, &QPushButton::clicked, this, &MouseRow::setUpChosen);
}

void MouseRow::setLine(const MouseLine& line) {
    m_name = line.name;
    m_box->setAccessibleName(line.name);
    m_box->setAccessibleDescription(line.detail.isEmpty()
                                        ? m_texts.boxDescription
                                        : line.detail + QLatin1Char('\n') + m_texts.boxDescription);
    m_box->setChecked(line.inUse);
    m_button->setVisible(line.inUse);
    m_button->setEnabled(line.canSetUp);
    m_button->setAccessibleName(filledText(m_texts.setUpName, {nameWithin(m_texts.setUpName, line.name)}));
    m_button->setToolTip(line.canSetUp ? m_texts.setUpDescription : m_texts.setUpHindrance);
    m_button->setAccessibleDescription(m_button->toolTip());
    m_detail->setText(line.detail);
    m_detail->setVisible(!line.detail.isEmpty());
    fitName();
}

bool MouseRow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_box && event->type() == QEvent::Resize)
        fitName();
    return QWidget::eventFilter(watched, event);
}

void MouseRow::fitName() {
    const int room = m_box->width() - indentOf(*m_box) - m_box->fontMetrics().averageCharWidth();
    QString text = m_box->fontMetrics().elidedText(m_name, Qt::ElideRight, std::max(0, room));
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (text = inItsDirection(text); text != m_box->text())
        m_box->setText(text);
}

} // namespace quorvi
