#include "host/OpenProgram.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <csignal>

#include "host/OpenWindow.h"
#include "support/Keyboard.h"
#include "support/SliderTools.h"

namespace quorvi::test {

namespace {

QPoint firstRowOf(QWidget& control) {
    const auto* table = qobject_cast<const QAbstractItemView*>(&control);
    return table ? table->viewport()->mapTo(table, table->visualRect(table->model()->index(0, 0)).center())
                 : QPoint();
}

QPoint spotOn(QWidget& control) {
    if (const auto* slider = qobject_cast<const QSlider*>(&control))
        return handleOf(*slider);
    if (qobject_cast<const QAbstractButton*>(&control))
        return {8, control.height() / 2};
    return control.rect().center();
}

} // namespace

Spots spotsOf(const char* control, int tab, const char* table) {
    const OpenWindow model;
    if (!model.showsMouse())
        qFatal("the panel does not show the mouse");
    model.clickTab(tab);
    const QTabBar* tabs = model.find<QTabWidget>("quorviTabsMain")->tabBar();
    if (table) {
        auto* rows = model.find<QAbstractItemView>(table);
        QTest::mouseClick(
            rows->viewport(), Qt::LeftButton, {}, rows->visualRect(rows->model()->index(0, 0)).center());
    }
    QWidget* widget = model.find(control);
    if (!QTest::qWaitFor([&] { return widget->isVisible(); }, kWindowPatienceMs))
        qFatal("%s does not come to the screen", control);
    const auto inWindow = [&](const QWidget& part, QPoint spot) { return part.mapTo(&model.host(), spot); };
    return {inWindow(*tabs, tabs->tabRect(tab).center()), inWindow(*widget, spotOn(*widget)),
        inWindow(*widget, QPoint(widget->width() * 3 / 4, widget->height() / 2)),
        inWindow(*widget, firstRowOf(*widget))};
}

OpenProgram::OpenProgram(
    const Session& session, const QString& bundlePath, const std::vector<std::string>& environment) {
    std::vector<std::string> arguments;
    if (!bundlePath.isEmpty())
        arguments.push_back(bundlePath.toStdString());
    m_program = session.startSettings(arguments, environment);
    m_window = visibleWindowOf(m_program->pid());
    if (!xdotool({"windowactivate", "--sync", m_window}))
        qFatal("the program's window cannot be activated");
}

void OpenProgram::pointer(QPoint spot, const std::vector<std::string>& then) const {
    std::vector<std::string> command{
        "mousemove", "--window", m_window, std::to_string(spot.x()), std::to_string(spot.y())};
    command.insert(command.end(), then.begin(), then.end());
    if (!xdotool(command))
        qFatal("the pointer cannot be moved");
}

void OpenProgram::clickAt(QPoint spot) const {
    pointer(spot, {"click", "1"});
}

void OpenProgram::pressAt(QPoint spot) const {
    pointer(spot, {"mousedown", "1"});
}

void OpenProgram::moveTo(QPoint spot) const {
    pointer(spot, {});
}

void OpenProgram::release() {
    if (!xdotool({"mouseup", "1"}))
        qFatal("the mouse's button does not come up");
}

ProgramResult OpenProgram::end() const {
    m_program->signal(SIGTERM);
    ProgramResult result;
    result.exitCode = m_program->wait();
    result.error = m_program->readError();
    return result;
}

} // namespace quorvi::test
