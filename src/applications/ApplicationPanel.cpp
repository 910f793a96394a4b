#include "applications/ApplicationPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

#include <utility>

#include "applications/ApplicationRows.h"
#include "applications/GamesReader.h"
#include "applications/OtherApplicationDialog.h"
#include "platform/InterfaceText.h"
#include "ui_ApplicationPanel.h"

namespace quorvi {

namespace {

constexpr int kPatienceMs = 300; // shorter reading is not announced

bool movesInList(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End: // without modifiers they move in the search text
        return key.modifiers() & Qt::ControlModifier;
    default:
        return false;
    }
}

} // namespace

ApplicationPanel::ApplicationPanel(QWidget* parent) : ApplicationPanel(parent, Surroundings()) {}

ApplicationPanel::ApplicationPanel(QWidget* parent, Surroundings surroundings)
    : QDialog(parent), m_surroundings(std::move(surroundings)),
      m_ui(std::make_unique<Ui::ApplicationPanel>()) {
    m_ui->setupUi(this);
    m_list.setSpokenGame(text("^1 (game, ^2)"));
    m_found.setSourceModel(&m_list);
    m_found.setFilterRole(ApplicationList::SearchRole);
    m_found.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_ui->quorviListApplications->setModel(&m_found);
    m_ui->quorviListApplications->setItemDelegate(
        std::make_unique<ApplicationRows>(m_ui->quorviListApplications).release());
    m_ui->quorviFieldSearch->installEventFilter(this);
    for (QToolButton* button : m_ui->quorviFieldSearch->findChildren<QToolButton*>())
        button->setAccessibleName(interfaceText("Clear search")); // Qt's own has no name
    m_longReading.setSingleShot(true);
    m_longReading.setInterval(kPatienceMs);

    connect(m_ui->quorviFieldSearch, &QLineEdit::textChanged, this, &ApplicationPanel::search);
    connect(m_ui->quorviListApplications->selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &ApplicationPanel::updateViews);
    connect(&m_longReading, &QTimer::timeout, m_ui->textReadingGames, &QWidget::show);
    connect(m_ui->quorviListApplications, &QListView::doubleClicked, this, &ApplicationPanel::accept);
    connect(m_ui->quorviApplicationButtonOther, &QPushButton::clicked, this, &ApplicationPanel::chooseOther);
    connect(m_ui->quorviApplicationButtonCancel, &QPushButton::clicked, this, &ApplicationPanel::reject);
    connect(m_ui->quorviApplicationButtonChoose, &QPushButton::clicked, this, &ApplicationPanel::accept);
}

ApplicationPanel::~ApplicationPanel() {
    stopReadingGames();
}

void ApplicationPanel::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) { // spontaneous ones occur whenever a minimised window is restored
        m_chosenPath.clear();
        m_chosenGame.reset();
        m_list.setApplications(installedApplications());
        readGames();
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
    if (!event->spontaneous())
        stopReadingGames();
    QDialog::hideEvent(event);
}

void ApplicationPanel::readGames() {
    stopReadingGames();
    if (m_surroundings.home.empty())
        return;
    m_reader = GamesReader::begin(m_surroundings.home, this, [this](const GamesReader* reader) {
        // A stopped reader may already have signalled that it is done.
        if (m_reader == reader)
            addGames();
    });
    m_longReading.start();
}

void ApplicationPanel::stopReadingGames() {
    if (m_reader) {
        m_reader->disconnect(this);
        m_reader->stop();
    }
    m_reader = nullptr;
    m_longReading.stop();
    m_ui->textReadingGames->hide();
}

void ApplicationPanel::addGames() {
    std::vector<InstalledApplication> games;
    for (const auto& game : m_reader->takeGames())
        games.push_back(applicationOfGame(game));
    stopReadingGames();
    const QString selectedGame = selected().data(ApplicationList::GameRole).toString();
    m_list.addGames(std::move(games));
    // The selected entry may have been replaced by its game; and the search may match a game.
    if (!selectedGame.isEmpty())
        (void)selectFirst(ApplicationList::IdRole, selectedGame, Qt::MatchExactly);
    else if (!selected().isValid())
        selectBest();
    updateViews();
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
    m_ui->quorviListApplications->selectionModel()->clear();
    selectBest();
    updateViews();
}

/// Return chooses the best match, preferably a name that starts with the text. An empty search selects
/// nothing.
void ApplicationPanel::selectBest() {
    const QString wanted = m_ui->quorviFieldSearch->text().trimmed();
    if (wanted.isEmpty() || selectFirst(Qt::DisplayRole, wanted, Qt::MatchStartsWith))
        return;
    m_ui->quorviListApplications->setCurrentIndex(m_found.index(0, 0));
    m_ui->quorviListApplications->scrollToTop();
}

/// Selects the first row whose text of that role matches; returns false if none does.
bool ApplicationPanel::selectFirst(int role, const QString& value, Qt::MatchFlag how) {
    const auto found = m_found.match(m_found.index(0, 0), role, value, 1, how);
    if (found.isEmpty())
        return false;
    m_ui->quorviListApplications->setCurrentIndex(found.first());
    m_ui->quorviListApplications->scrollTo(found.first());
    return true;
}

void ApplicationPanel::updateViews() {
    m_ui->quorviApplicationButtonChoose->setEnabled(selected().isValid());
    const bool none = m_list.rowCount() == 0;
    m_ui->textNoApplication->setText(m_reader ? text("Looking for games…")
                                     : none   ? text("No installed applications were found.")
                                              : text("No application matches the search."));
    m_ui->stackApplications->setCurrentWidget(
        m_found.rowCount() == 0 ? m_ui->pageNoApplication : m_ui->pageApplications);
}

QModelIndex ApplicationPanel::selected() const {
    const QModelIndexList rows = m_ui->quorviListApplications->selectionModel()->selectedIndexes();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

std::optional<ApplicationInformation> ApplicationPanel::chosen() const {
    return m_chosenGame ? m_chosenGame : applicationInformation(m_chosenPath);
}

void ApplicationPanel::accept() {
    const QModelIndex row = selected();
    if (!row.isValid())
        return;
    const auto& application = m_list.application(m_found.mapToSource(row).row());
    m_chosenGame = application.information;
    choose(application.path);
}

void ApplicationPanel::chooseOther() {
    m_other = std::make_unique<OtherApplicationDialog>(this, m_surroundings.text).release();
    m_other->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_other, &OtherApplicationDialog::fileSelected, this, &ApplicationPanel::choose);
    m_other->open();
}

void ApplicationPanel::choose(const QString& path) {
    m_chosenPath = path;
    QDialog::accept();
}

} // namespace quorvi
