#include "window/Notices.h"

#include <utility>

namespace quorvi {

Notices::Notices(QWidget& mainView, PanelText text) : m_mainView(&mainView), m_text(std::move(text)) {}

NoticeBar& Notices::bar() {
    if (!m_bar)
        m_bar = new NoticeBar({.dismiss = m_text("OK"), .offer = m_text("Undo")}, *m_mainView);
    return *m_bar;
}

void Notices::tell(Notice kind, const QString& text, NoticeSign sign) {
    if (m_mainView)
        bar().tell(static_cast<int>(kind), {.text = text, .sign = sign});
}

void Notices::tellUndoable(const QString& text, NoticeSign sign) {
    if (m_mainView)
        bar().tell(static_cast<int>(Notice::outcome), {.text = text, .sign = sign, .offer = m_undo});
}

void Notices::withdraw(Notice kind) {
    if (m_mainView && m_bar)
        m_bar->withdraw(static_cast<int>(kind));
}

void Notices::withdrawOffer() {
    if (m_mainView && m_bar)
        m_bar->withdrawOffers();
}

} // namespace quorvi
