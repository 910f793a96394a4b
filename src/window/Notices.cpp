#include "window/Notices.h"

#include <utility>

namespace quorvi {

Notices::Notices(QWidget& mainView, PanelText text) : m_mainView(&mainView), m_text(std::move(text)) {}

void Notices::tell(Notice kind, const QString& text, NoticeSign sign) {
    if (!m_mainView)
        return;
    if (!m_bar)
        m_bar = new NoticeBar(m_text("OK"), *m_mainView);
    m_bar->tell(static_cast<int>(kind), text, sign);
}

void Notices::withdraw(Notice kind) {
    if (m_mainView && m_bar)
        m_bar->withdraw(static_cast<int>(kind));
}

} // namespace quorvi
