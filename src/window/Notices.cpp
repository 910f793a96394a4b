#include "window/Notices.h"

#include <QStackedWidget>
#include <QTabBar>

#include <utility>

#include "widgets/TabView.h"

namespace quorvi {

Notices::Notices(QWidget& mainView, PanelText text) : m_mainView(&mainView), m_text(std::move(text)) {}

NoticeBar& Notices::bar() {
    if (m_bar)
        return *m_bar;
    const NoticeBar::Titles titles{.dismiss = m_text("Close message"),
        .dismissTip = m_text("Closes this message."),
        .offer = m_text("Undo")};
    auto* tabs = m_mainView->findChild<TabView*>();
    QWidget& page = tabs ? static_cast<QWidget&>(tabs->pages()) : *m_mainView;
    m_bar = new NoticeBar(titles, *m_mainView, page);
    if (tabs)
        m_bar->followInTabOrder(*tabs->tabBar());
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

void Notices::tellOffer(Notice kind, const QString& text, const Offer& offer) {
    if (m_mainView)
        bar().tell(static_cast<int>(kind), {.text = text,
                                               .sign = NoticeSign::warning,
                                               .offer = offer.take,
                                               .offerTitle = offer.title,
                                               .ended = offer.ended});
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
