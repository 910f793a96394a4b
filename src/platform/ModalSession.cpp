#include "platform/ModalSession.h"

#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace quorvi {

namespace {

constexpr Qt::WindowFlags kSheetFlags =
    Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

/// What the window manager puts around a sheet: at most a title bar of 40 pixels.
constexpr QSize kDecoration{8, 40};

/// Keeps a sheet centred over its window, even while the window manager is still placing the window.
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

/// Makes Qt forget that the hidden sheet had the focus. Qt does so itself only when the display has focused
/// another window of the program; a sheet shown again before that receives the focus while Qt believes it
/// already has it, and Qt 6.8 (not 6.4) then does not activate it.
void giveFocusUp(const QWidget& sheet) {
    QWindow* window = sheet.windowHandle();
    if (window && window == QGuiApplication::focusWindow())
        window->destroy();
}

/// Shows the sheet as large as it asks to be. Qt alone would open it no higher than two thirds of the screen,
/// and cut its lists on a low one.
void showWhole(QDialog& sheet) {
    const bool resized = sheet.testAttribute(Qt::WA_Resized);
    if (!resized)
        sheet.resize(sheet.sizeHint().boundedTo(sheet.screen()->availableSize() - kDecoration));
    sheet.show();
    sheet.setAttribute(Qt::WA_Resized, resized); // its contents may be others the next time
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
    // Qt 5 forgets the focus widget of a sheet shown for the first time, Qt 6 that of a reparented one.
    QWidget* const first = panel->focusWidget();
    // A sheet blocks its parent: a second sheet must be a child of the first, or both would accept clicks.
    panel->setParent(m_sessions.empty() ? parent : m_sessions.back().panel, kSheetFlags);
    if (first)
        first->setFocus();
    panel->setWindowModality(Qt::WindowModal);
    QEventLoop loop;
    const QPointer<QDialog> guard(panel);
    m_sessions.push_back({panel, &loop});
    // Escape and the window manager's close button act like the cancel button.
    const auto cancel = QObject::connect(panel, &QDialog::rejected, &loop, [this] { stop(0); });
    const auto accept = QObject::connect(panel, &QDialog::accepted, &loop, [this] { stop(1); });
    const SheetPlacement placement(panel, panel->parentWidget()->window());
    giveFocusUp(*panel);
    showWhole(*panel);
    panel->raise();
    panel->activateWindow();
    const int code = loop.exec();
    if (!guard)
        return 0; // The pane was destroyed, and this object with it.
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
