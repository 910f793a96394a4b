#include "pane/WindowHead.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

#include "document/Document.h"
#include "model/Keys.h"
#include "platform/ViewActivation.h"
#include "session/HelperLink.h"
#include "widgets/ShownText.h"

namespace quorvi {

WindowHead::WindowHead(const EditorContext& context, const Views& views, const HelperLink& helper)
    : m_context(context), m_views(views), m_helper(helper), m_usualNoMacro(views.noMacro.text()) {}

QString WindowHead::title() const {
    if (!m_context.document.hasDevice())
        return m_context.text("No device connected");
    const QString name =
        shownName(QString::fromStdU16String(m_context.document.profile().string(keys::name)));
    return name.isEmpty() ? m_context.text("Default Profile") : name;
}

void WindowHead::show() {
    m_views.profile.setText(title());
    showConnection();
    makeViewActive(&m_views.tabs, m_context.document.hasDevice());
    m_views.checkForUpdates.setEnabled(true);
}

void WindowHead::showConnection() {
    const QString text = m_helper.connectionText();
    m_views.connection.setText(text);
    m_views.noMacro.setText(m_context.document.hasDevice() ? m_usualNoMacro : text);
}

} // namespace quorvi
