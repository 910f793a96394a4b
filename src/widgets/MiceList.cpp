#include "widgets/MiceList.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

#include "widgets/CheckBox.h"
#include "widgets/Metrics.h"
#include "widgets/MouseRow.h"
#include "widgets/WrappedLabel.h"

namespace quorvi {

namespace {

constexpr std::size_t kMostRows = 3; // to be seen at a time
constexpr int kLettersOfName = 22;   // in average letters

int heightOf(const QWidget& part, int width) {
    return part.hasHeightForWidth() ? part.heightForWidth(width) : part.sizeHint().height();
}

bool areOf(const QList<MouseRow*>& rows, const QList<MouseLine>& lines) {
    return std::equal(rows.begin(), rows.end(), lines.begin(), lines.end(),
        [](const MouseRow* row, const MouseLine& line) { return row->id() == line.id; });
}

} // namespace

MiceList::MiceList(QWidget* parent)
    : QScrollArea(parent), m_contents(new QWidget), m_layout(new QVBoxLayout(m_contents)),
      m_empty(new WrappedLabel) {
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus); // its check boxes take it
    setFrameShape(QFrame::NoFrame);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(metrics::rowGap);
    m_empty->setTextFormat(Qt::PlainText);
    m_empty->setWordWrap(true);
    m_layout->addWidget(m_empty);
    m_layout->addStretch(1);
    setWidget(m_contents);
}

MiceList::~MiceList() = default;

QString MiceList::emptyText() const {
    return m_empty->text();
}

void MiceList::setEmptyText(const QString& text) {
    m_empty->setText(text);
}

void MiceList::setLines(const QList<MouseLine>& lines) {
    if (!areOf(m_rows, lines))
        makeRows(lines);
    for (int i = 0; i < lines.size(); ++i)
        m_rows[i]->setLine(lines[i]);
    m_empty->setVisible(lines.isEmpty());
    updateGeometry();
}

void MiceList::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    updateGeometry(); // in another width the details have other heights
}

void MiceList::makeRows(const QList<MouseLine>& lines) {
    // This window's focus widget, even while a sheet is in front of it.
    const QWidget* focus = window()->focusWidget();
    QString focused;
    for (const MouseRow* row : m_rows)
        if (row->box() == focus || row->button() == focus)
            focused = row->id();
    const bool isButton = qobject_cast<const QPushButton*>(focus);
    qDeleteAll(m_rows);
    m_rows.clear();
    for (const MouseLine& line : lines) {
        auto* row = new MouseRow(line.id, int(m_rows.size()) + 1,
            {m_boxDescription, m_setUpText, m_setUpName, m_setUpDescription, m_setUpHindrance});
        m_layout->insertWidget(m_layout->count() - 1, row);
        connect(
            row, &MouseRow::useChosen, this, [this, id = line.id](bool inUse) { emit useChosen(id, inUse); });
        connect(row, &MouseRow::setUpChosen, this, [this, id = line.id] { emit setUpChosen(id); });
        m_rows << row;
        if (line.id == focused)
            isButton ? row->button()->setFocus() : row->box()->setFocus();
    }
    emit stopsChanged();
}

QList<QWidget*> MiceList::stops() const {
    QList<QWidget*> stops;
    for (const MouseRow* row : m_rows)
        stops << row->box() << row->button();
    return stops;
}

QSize MiceList::sizeHint() const {
    const QSize least(kLettersOfName * fontMetrics().averageCharWidth(), 0);
    const int width = std::max(viewport()->width(), least.width());
    if (m_rows.isEmpty())
        return {least.width(), heightOf(*m_empty, width)};
    const auto seen = std::min(std::size_t(m_rows.size()), kMostRows);
    int height = (int(seen) - 1) * m_layout->spacing();
    for (std::size_t row = 0; row < seen; ++row)
        height += heightOf(*m_rows[int(row)], width);
    return {least.width(), height};
}

} // namespace quorvi
