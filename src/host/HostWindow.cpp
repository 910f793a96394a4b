#include "host/HostWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QTabWidget>

#include "host/WindowState.h"

namespace quorvi {

namespace {

constexpr QSize kInitialSize(760, 560);

} // namespace

HostWindow::HostWindow(std::vector<std::unique_ptr<LoadedPane>> panes)
    : m_panes(std::move(panes)), m_list(new QListWidget(this)), m_stack(new QStackedWidget(this)) {
    auto* content = new QWidget(this);
    setCentralWidget(content);
    auto* layout = new QHBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list);
    layout->addWidget(m_stack, 1);
    for (const auto& pane : m_panes) {
        if (m_panes.size() > 1)
            m_list->addItem(new QListWidgetItem(pane->icon(), pane->name()));
        m_stack->addWidget(pane->mainView());
    }
    m_list->setAccessibleName(QStringLiteral("Settings"));
    m_list->setVisible(m_panes.size() > 1);
    m_list->setMaximumWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + 16);
    connect(m_list, &QListWidget::currentRowChanged, this, &HostWindow::showPane);

    auto* quit = new QAction(this);
    quit->setShortcuts({QKeySequence(QKeySequence::Quit), QKeySequence(QKeySequence::Close)});
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);
    resize(kInitialSize);
}

HostWindow::~HostWindow() {
    keepState();
    showPane(-1);
    // A pane's view dies with its pane, not with this window.
    for (const auto& pane : m_panes)
        pane->mainView()->setParent(nullptr);
}

QTabWidget* HostWindow::tabs() const {
    return m_panes.empty() ? nullptr : m_panes.front()->mainView()->findChild<QTabWidget*>();
}

void HostWindow::rememberIn(const std::filesystem::path& file) {
    m_stateFile = file;
    const auto state = keptWindowState(file);
    if (!state)
        return;
    // One that was kept on a larger screen is to be reached whole.
    resize(state->size.boundedTo(screen()->availableSize()));
    m_tabToOpen = state->tab;
}

void HostWindow::keepState() {
    const QTabWidget* widget = tabs();
    // What a maximised window has is the screen's size, not the user's choice.
    const QSize shown = isMaximized() || isFullScreen() ? normalGeometry().size() : size();
    if (!m_stateFile.empty() && m_hasBeenDrawn)
        keepWindowState(m_stateFile, {.size = shown, .tab = widget ? widget->currentIndex() : 0});
}

void HostWindow::showPane(int index) {
    if (m_shown == index)
        return;
    if (m_shown >= 0)
        m_panes[static_cast<std::size_t>(m_shown)]->unselect();
    m_shown = index >= 0 && index < static_cast<int>(m_panes.size()) ? index : -1;
    if (m_shown < 0)
        return;
    LoadedPane& pane = *m_panes[static_cast<std::size_t>(m_shown)];
    setWindowTitle(pane.name());
    if (m_hasBeenDrawn)
        showIcon();
    m_list->setCurrentRow(m_shown);
    m_stack->setCurrentIndex(m_shown);
    if (isVisible())
        selectPane();
}

void HostWindow::selectPane() {
    LoadedPane& pane = *m_panes[static_cast<std::size_t>(m_shown)];
    pane.select();
    // Once: a pane opens on its first tab itself, and comes back as the user left it.
    const int tab = std::exchange(m_tabToOpen, 0);
    if (QTabWidget* widget = tabs(); widget && tab > 0 && tab < widget->count())
        widget->setCurrentIndex(tab);
    // Some styles align the items of menus by the application's direction.
    QGuiApplication::setLayoutDirection(pane.mainView()->layoutDirection());
}

void HostWindow::openFile(const QString& path) {
    if (m_shown >= 0)
        m_panes[static_cast<std::size_t>(m_shown)]->openFile(path);
}

void HostWindow::showIcon() {
    setWindowIcon(m_shown < 0 ? QIcon() : m_panes[static_cast<std::size_t>(m_shown)]->icon());
}

void HostWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (!std::exchange(m_hasBeenDrawn, true))
        QMetaObject::invokeMethod(this, &HostWindow::showIcon, Qt::QueuedConnection);
}

void HostWindow::setVisible(bool visible) {
    if (visible && m_shown < 0)
        showPane(0);
    QMainWindow::setVisible(visible);
    // After the request to show the window, which takes the display a while: the pane looks for its helper in
    // the meantime. Nothing is drawn before this returns.
    if (visible && m_shown >= 0)
        selectPane();
}

void HostWindow::closeEvent(QCloseEvent* event) {
    showPane(-1);
    event->accept();
}

} // namespace quorvi
