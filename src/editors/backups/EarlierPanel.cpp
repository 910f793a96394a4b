#include "editors/backups/EarlierPanel.h"

#include <QPushButton>

#include <utility>

#include "resources/Interface.h"
#include "ui_EarlierPanel.h"
#include "widgets/Metrics.h"

namespace quorvi {

EarlierPanel::EarlierPanel(QWidget* parent, Surroundings surroundings)
    : QDialog(parent), m_surroundings(std::move(surroundings)),
      m_copies(m_surroundings.history.list(), m_surroundings.time, m_surroundings.text),
      m_ui(std::make_unique<Ui::EarlierPanel>()) {
    m_ui->setupUi(this);
    keepTextsWhole(*this);
    m_ui->quorviListEarlier->setModel(&m_copies);
    m_ui->quorviListEarlier->setSpacing(metrics::fieldGap / 2); // each copy has three lines
    const bool isEmpty = m_copies.rowCount() == 0;
    m_ui->stackEarlier->setCurrentWidget(isEmpty ? m_ui->pageNoEarlier : m_ui->pageEarlier);
    if (isEmpty)
        m_ui->quorviEarlierButtonCancel->setFocus();
    else
        m_ui->quorviListEarlier->setFocus();
    connect(m_ui->quorviListEarlier->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &EarlierPanel::showSelected);
    connect(m_ui->quorviListEarlier, &QListView::doubleClicked, this, &EarlierPanel::accept);
    connect(m_ui->quorviEarlierButtonRestore, &QPushButton::clicked, this, &EarlierPanel::accept);
    connect(m_ui->quorviEarlierButtonCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&m_comparing, &QTimer::timeout, this, &EarlierPanel::compareNext);
    m_ui->quorviListEarlier->setCurrentIndex(m_copies.index(0));
    showSelected();
    m_comparing.start(); // while the event loop is idle
}

EarlierPanel::~EarlierPanel() = default;

void EarlierPanel::compareNext() {
    if (m_compared < m_copies.rowCount()) {
        m_copies.compare(m_compared++, m_surroundings.history, m_surroundings.now);
        return;
    }
    m_comparing.stop();
    m_ui->quorviListEarlier->doItemsLayout(); // rows may need other heights now
}

void EarlierPanel::showSelected() {
    const int row = selectedRow();
    if (row >= 0)
        m_copies.compare(row, m_surroundings.history, m_surroundings.now);
    m_ui->quorviListEarlierDifferences->setSentences(
        row >= 0 ? m_copies.differences(row).value_or(QStringList()) : QStringList());
    m_ui->quorviEarlierButtonRestore->setEnabled(chosen().has_value());
}

int EarlierPanel::selectedRow() const {
    const QModelIndexList rows = m_ui->quorviListEarlier->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

std::optional<DatedCopy> EarlierPanel::chosen() const {
    const int row = selectedRow();
    return row >= 0 && m_copies.isWhole(row) ? std::optional(m_copies.copy(row)) : std::nullopt;
}

void EarlierPanel::accept() {
    if (chosen())
        QDialog::accept();
}

} // namespace quorvi
