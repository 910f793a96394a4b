#include "platform/ModalSession.h"

#include <QEventLoop>
#include <QPointer>

#include <algorithm>

namespace quorvi {

ModalSessions::~ModalSessions() {
    for (const Session& session : m_sessions)
        session.loop->exit(0);
}

int ModalSessions::run(QDialog* panel) {
    if (!panel ||
        std::any_of(m_sessions.begin(), m_sessions.end(), [&](const Session& s) { return s.panel == panel; }))
        return 0;
    QWidget* const parent = panel->parentWidget();
    // A sheet blocks its parent: a second sheet has to hang on the first, or both would take clicks.
    panel->setParent(m_sessions.empty() ? parent : m_sessions.back().panel, Qt::Sheet);
    panel->setWindowModality(Qt::WindowModal);
    QEventLoop loop;
    const QPointer<QDialog> guard(panel);
    m_sessions.push_back({panel, &loop});
    // Escape and the window manager's close button answer as the cancel button does.
    const auto cancel = QObject::connect(panel, &QDialog::rejected, &loop, [this] { stop(0); });
    panel->show();
    panel->raise();
    panel->activateWindow();
    const int code = loop.exec();
    if (!guard)
        return 0; // The pane went away underneath, and this object with it.
    QObject::disconnect(cancel);
    panel->hide();
    panel->setParent(parent, Qt::Sheet);
    m_sessions.pop_back();
    return code;
}

void ModalSessions::stop(int code) {
    if (!m_sessions.empty())
        m_sessions.back().loop->exit(code);
}

} // namespace quorvi
