#include "platform/applications/ApplicationPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QToolButton>

#include "platform/InterfaceText.h"
#include "platform/applications/OtherApplicationDialog.h"
#include "ui_ApplicationPanel.h"

namespace quorvi {

namespace {

bool movesInList(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End: // alone they move in the search text
        return key.modifiers() & Qt::ControlModifier;
    default:
        return false;
    }
}

/// Draws the rows as those of a list with the focus: some styles grey the others, and here the focus is in
/// the search field all the time. Small icons take as much room as the others, so that the names are in line.
class RowDelegate : public QStyledItemDelegate {
  public:
    explicit RowDelegate(QListView* list) : QStyledItemDelegate(list), m_list(*list) {}

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationSize = m_list.iconSize();
        for (const auto role : {QPalette::Text, QPalette::HighlightedText, QPalette::Highlight})
            option->palette.setBrush(QPalette::Inactive, role, option->palette.brush(QPalette::Active, role));
    }

  private:
    const QListView& m_list;
};

} // namespace

ApplicationPanel::ApplicationPanel(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ApplicationPanel>()) {
    m_ui->setupUi(this);
    m_found.setSourceModel(&m_list);
    m_found.setFilterRole(ApplicationList::SearchRole);
    m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_ui->quorviListApplications->setModel(&m_found);
    m_ui->quorviListApplications->setItemDelegate(
        std::make_unique<RowDelegate>(m_ui->quorviListApplications).release());
    m_ui->quorviFieldSearch->installEventFilter(this);
    for (QToolButton* button : m_ui->quorviFieldSearch->findChildren<QToolButton*>())
        button->setAccessibleName(interfaceText("Clear search")); // Qt's own has no name

    connect(m_ui->quorviFieldSearch, &QLineEdit::textChanged, this, &ApplicationPanel::search);
    connect(m_ui->quorviListApplications->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &ApplicationPanel::updateViews);
    connect(m_ui->quorviListApplications, &QListView::doubleClicked, this, &ApplicationPanel::accept);
    connect(m_ui->quorviApplicationButtonOther, &QPushButton::clicked, this, &ApplicationPanel::chooseOther);
    connect(m_ui->quorviApplicationButtonCancel, &QPushButton::clicked, this, &ApplicationPanel::reject);
    connect(m_ui->quorviApplicationButtonChoose, &QPushButton::clicked, this, &ApplicationPanel::accept);
}

ApplicationPanel::~ApplicationPanel() = default;

void ApplicationPanel::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) { // those come whenever a minimised window is restored
        m_chosenPath.clear();
        m_list.setApplications(installedApplications());
        m_ui->quorviFieldSearch->clear();
        m_ui->quorviListApplications->scrollToTop();
        m_ui->quorviFieldSearch->setFocus();
        updateViews();
    }
    QDialog::showEvent(event);
}

void ApplicationPanel::hideEvent(QHideEvent* event) {
    if (m_other && !event->spontaneous())
        m_other->reject();
    QDialog::hideEvent(event);
}

bool ApplicationPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && movesInList(static_cast<QKeyEvent&>(*event))) {
        QCoreApplication::sendEvent(m_ui->quorviListApplications, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void ApplicationPanel::search(const QString& text) {
    m_found.setFilterFixedString(text.trimmed());
    // Return chooses what was looked for, best a name that starts so. An empty search looks for nothing.
    QListView* const list = m_ui->quorviListApplications;
    list->selectionModel()->clear();
    if (!text.trimmed().isEmpty()) {
        const QModelIndex first = m_found.index(0, 0);
        const auto starting = m_found.match(first, Qt::DisplayRole, text.trimmed(), 1, Qt::MatchStartsWith);
        list->setCurrentIndex(starting.isEmpty() ? first : starting.first());
        list->scrollTo(list->currentIndex());
    }
    updateViews();
}

void ApplicationPanel::updateViews() {
    m_ui->quorviApplicationButtonChoose->setEnabled(selected().isValid());
    const bool none = m_list.rowCount() == 0;
    m_ui->textNoApplication->setText(none ? interfaceText("No installed applications were found.")
                                          : interfaceText("No application matches the search."));
    m_ui->stackApplications->setCurrentWidget(
        m_found.rowCount() == 0 ? m_ui->pageNoApplication : m_ui->pageApplications);
}

QModelIndex ApplicationPanel::selected() const {
    const QModelIndexList rows = m_ui->quorviListApplications->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

void ApplicationPanel::accept() {
    if (const QModelIndex row = selected(); row.isValid())
        choose(row.data(ApplicationList::PathRole).toString());
}

void ApplicationPanel::chooseOther() {
    m_other = std::make_unique<OtherApplicationDialog>(this).release();
    m_other->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_other, &OtherApplicationDialog::fileSelected, this, &ApplicationPanel::choose);
    m_other->open();
}

void ApplicationPanel::choose(const QString& path) {
    m_chosenPath = path;
    QDialog::accept();
}

} // namespace quorvi
