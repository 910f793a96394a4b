#include "platform/ModalSession.h"

#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <algorithm>

namespace quorvi {

namespace {

constexpr Qt::WindowFlags kSheetFlags =
    Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

/// Keeps a sheet over the middle of its window, also while the window manager is still placing that.
class SheetPlacement : public QObject {
  public:
    SheetPlacement(QWidget* sheet, QWidget* window) : m_sheet(sheet), m_window(window) {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            place();
        return QObject::eventFilter(watched, event);
    }

  private:
    void place() { m_sheet->move(m_window->geometry().center() - m_sheet->rect().center()); }

    QWidget* m_sheet;
    QWidget* m_window;
};

/// Has Qt forget that the hidden sheet had the focus. It does so by itself only when the display has focused
/// another window of the program; a sheet that is shown again before that gets the focus as its window had it
/// already, and Qt 6.8 (6.4 not) then does not make it the active one.
void giveFocusUp(const QWidget& sheet) {
    QWindow* window = sheet.windowHandle();
    if (window && window == QGuiApplication::focusWindow())
        window->destroy();
}

} // namespace

ModalSessions::~ModalSessions() {
    for (const Session& session : m_sessions)
        session.loop->exit(0);
}

int ModalSessions::run(QDialog* panel) {
    if (!panel ||
        std::any_of(m_sessions.begin(), m_sessions.end(), [&](const Session& s) { return s.panel == panel; }))
        return 0;
    QWidget* const parent = panel->parentWidget();
    // What Qt 5 forgets of a sheet that is shown for the first time, and Qt 6 of one with another parent.
    QWidget* const first = panel->focusWidget();
    // A sheet blocks its parent: a second sheet has to hang on the first, or both would take clicks.
    panel->setParent(m_sessions.empty() ? parent : m_sessions.back().panel, kSheetFlags);
    if (first)
        first->setFocus();
    panel->setWindowModality(Qt::WindowModal);
    QEventLoop loop;
    const QPointer<QDialog> guard(panel);
    m_sessions.push_back({panel, &loop});
    // Escape and the window manager's close button answer as the cancel button does.
    const auto cancel = QObject::connect(panel, &QDialog::rejected, &loop, [this] { stop(0); });
    const auto accept = QObject::connect(panel, &QDialog::accepted, &loop, [this] { stop(1); });
    const SheetPlacement placement(panel, panel->parentWidget()->window());
    giveFocusUp(*panel);
    panel->show();
    panel->raise();
    panel->activateWindow();
    const int code = loop.exec();
    if (!guard)
        return 0; // The pane went away underneath, and this object with it.
    QObject::disconnect(cancel);
    QObject::disconnect(accept);
    panel->hide();
    panel->setParent(parent, kSheetFlags);
    m_sessions.pop_back();
    return code;
}

void ModalSessions::stop(int code) {
    if (!m_sessions.empty())
        m_sessions.back().loop->exit(code);
}

} // namespace quorvi
