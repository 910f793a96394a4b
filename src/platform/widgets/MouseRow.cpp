#include "platform/widgets/MouseRow.h"

#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

#include "platform/widgets/CheckBox.h"
#include "platform/widgets/ShownText.h"
#include "platform/widgets/WrappedLabel.h"

namespace quorvi {

namespace {

constexpr int kLineSpacing = 1;
constexpr qreal kNoteScale = 0.9; // as the other notes of the panel

/// Where the box's text begins, so that what stands below begins there as well.
int indentOf(const QCheckBox& box) {
    return box.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box) +
           box.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &box);
}

} // namespace

MouseRow::MouseRow(const QString& id, int number, const QString& boxDescription)
    : m_id(id), m_boxDescription(boxDescription), m_box(new CheckBox), m_detail(new WrappedLabel) {
    m_box->setObjectName(QStringLiteral("quorviBoxMouse%1").arg(number));
    m_box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_box->setToolTip(boxDescription);
    m_detail->setTextFormat(Qt::PlainText);
    m_detail->setWordWrap(true);
    QFont note = font();
    note.pointSizeF() > 0 ? note.setPointSizeF(note.pointSizeF() * kNoteScale)
                          : note.setPixelSize(qRound(note.pixelSize() * kNoteScale));
    m_detail->setFont(note);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kLineSpacing);
    layout->addWidget(m_box);
    auto* indented = new QHBoxLayout;
    indented->addSpacing(indentOf(*m_box));
    indented->addWidget(m_detail, 1);
    layout->addLayout(indented);
    connect(m_box, &QCheckBox::clicked, this, &MouseRow::useChosen);
}

void MouseRow::setLine(const MouseLine& line) {
    m_name = line.name;
    m_box->setAccessibleName(line.name);
    m_box->setAccessibleDescription(
        line.detail.isEmpty() ? m_boxDescription : line.detail + QStringLiteral(". ") + m_boxDescription);
    m_box->setChecked(line.inUse);
    m_detail->setText(line.detail);
    m_detail->setVisible(!line.detail.isEmpty());
    fitName();
}

void MouseRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fitName();
}

void MouseRow::fitName() {
    const int room = width() - indentOf(*m_box) - m_box->fontMetrics().averageCharWidth();
    QString text = m_box->fontMetrics().elidedText(m_name, Qt::ElideRight, std::max(0, room));
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (text = inItsDirection(text); text != m_box->text())
        m_box->setText(text);
}

} // namespace quorvi
