#include "proof/Monkey.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMenu>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

#include "model/Keys.h"
#include "proof/Rules.h"

namespace quorvi::test {

namespace {

/// While a device list is on its way there is nothing to do.
constexpr int kWaitMs = 1;

/// The files that are chosen in file panels are real ones: of those, nothing but a name is entered.
QFileDialog* filePanelOf(QWidget* widget) {
    for (; widget; widget = widget->parentWidget())
        if (auto* panel = qobject_cast<QFileDialog*>(widget))
            return panel;
    return nullptr;
}

} // namespace

QStringList Monkey::gWarnings;

QString Monkey::use(int actions) {
    m_world = std::make_unique<World>();
    m_checkedSaves = 0;
    m_mayDangle = false;
    m_end = m_done + actions;
    m_world->sendDeviceList(1);
    QEventLoop loop;
    m_loop = &loop;
    m_level = QThread::currentThread()->loopLevel() + 1;
    scheduleTurn();
    loop.exec();
    m_saves += m_world->saves();
    m_world.reset();
    return m_complaint;
}

void Monkey::scheduleTurn(int milliseconds) {
    // A new one each time: a timer does not fire within what it started itself.
    QTimer::singleShot(milliseconds, this, &Monkey::turn);
}

void Monkey::fail(const QString& complaint) {
    if (!m_complaint.isEmpty())
        return;
    m_complaint = complaint;
    Diary::print();
}

void Monkey::turn() {
    if (m_world->isListOnItsWay())
        return scheduleTurn(kWaitMs);
    check();
    if (m_done >= m_end || !m_complaint.isEmpty())
        return leaveEverything();
    scheduleTurn(); // before the action, which may run a loop of its own
    ++m_done;
    act();
    // Before any timer: the platform without a display delivers what waits while it makes a window, and Qt 5
    // does not survive a click that closes a submenu which it is just opening.
    QWindowSystemInterface::sendWindowSystemEvents(QEventLoop::AllEvents);
}

void Monkey::act() {
    QString name;
    // No window manager gives the focus back when a sheet or a window goes.
    if (const QWindow* focused = QGuiApplication::focusWindow(); !focused || !focused->isVisible())
        (QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                           : m_world->panel().window.get())
            ->activateWindow();
    QWidget* const popUp = QApplication::activePopupWidget();
    QWidget* const modal = QApplication::activeModalWidget();
    if (oneIn(m_world->isShown() ? 25 : 3))
        name = actAround();
    else if (auto* menu = qobject_cast<QMenu*>(popUp))
        name = actInMenu(*menu);
    else if (auto* panel = filePanelOf(modal))
        name = actInFilePanel(*panel);
    else if (m_world->panel().pane->isRecordingMacro() && !oneIn(4))
        name = actWhileRecording();
    else
        name = actInWindow(modal && !oneIn(30) ? *modal : *m_world->panel().window);
    m_diary.note(m_done, name);
}

void Monkey::check() {
    for (const QString& warning : std::exchange(gWarnings, {}))
        fail(warning);
    for (const QString& complaint : m_world->takeComplaints())
        fail(complaint);
    if (m_world->saves() == std::exchange(m_checkedSaves, m_world->saves()))
        return;
    const auto tree = asWritten(m_world->panel().pane->deviceConfig()).dictionary();
    if (!tree)
        return; // hidden
    for (const QString& rule : brokenRules(tree))
        fail(rule);
    const QStringList dangling = danglingAssignments(tree);
    if (!dangling.isEmpty() && !m_mayDangle)
        fail(dangling.first());
    m_mayDangle = m_mayDangle && !dangling.isEmpty();
    // A click on a check box makes its profile the current one without showing it, and nothing else.
    const int shown = m_world->panel().selectedRow("quorviTableProfiles");
    const int current = m_world->panel().pane->profileIndex();
    if (shown == current && !hasPrimaryClick(tree.array(keys::profiles).dictionary(std::size_t(current))))
        fail(QStringLiteral("no input of the current profile clicks"));
}

QString Monkey::hideAndCheck() {
    m_world->hide();
    if (const QString broken = m_world->brokenMessages(); !broken.isEmpty())
        fail(broken);
    return QStringLiteral("hide the panel");
}

void Monkey::leaveEverything() {
    m_hands.letGo(*m_world->panel().window);
    m_diary.note(m_done, QStringLiteral("leave everything"));
    if (QWidget* popUp = QApplication::activePopupWidget()) {
        scheduleTurn();
        popUp->close();
    } else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        scheduleTurn();
        dialog->reject();
    } else if (QThread::currentThread()->loopLevel() > m_level) {
        scheduleTurn();
    } else if (m_world->isShown()) {
        scheduleTurn();
        static_cast<void>(hideAndCheck());
    } else {
        m_loop->quit();
    }
}

} // namespace quorvi::test
