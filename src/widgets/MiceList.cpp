#include "widgets/MiceList.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

#include "widgets/CheckBox.h"
#include "widgets/MouseRow.h"
#include "widgets/WrappedLabel.h"

namespace quorvi {

namespace {

constexpr int kMargin = 6;
constexpr int kRowSpacing = 6;
constexpr int kFewestLines = 4; // two mice, with what is said of them
constexpr int kUsualLines = 6;
constexpr int kLettersOfName = 22; // in average letters

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
    setFocusPolicy(Qt::NoFocus); // its boxes have it
    m_layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_layout->setSpacing(kRowSpacing);
    m_empty->setTextFormat(Qt::PlainText);
    m_empty->setWordWrap(true);
    m_layout->addWidget(m_empty);
    m_layout->addStretch(1);
    m_contents->setBackgroundRole(QPalette::Base);
    m_contents->setAutoFillBackground(true);
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
}

void MiceList::makeRows(const QList<MouseLine>& lines) {
    // Of this window, also while a sheet is in front of it.
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

QSize MiceList::sizeOfLines(int lines) const {
    const QFontMetrics font = fontMetrics();
    return {kLettersOfName * font.averageCharWidth(),
        lines * font.lineSpacing() + 2 * (kMargin + frameWidth()) + (lines / 2 - 1) * kRowSpacing};
}

QSize MiceList::sizeHint() const {
    return sizeOfLines(kUsualLines);
}

QSize MiceList::minimumSizeHint() const {
    return sizeOfLines(kFewestLines);
}

} // namespace quorvi
