#include "helper/front/ApplicationInFront.h"

#include <algorithm>
#include <utility>

#include "helper/front/Recognition.h"
#include "helper/front/X11Source.h"

namespace quorvi::front {

ApplicationInFront::ApplicationInFront(EventBus& bus, EventLoop& loop, const Session& session)
    : m_object(FrontObject::offer(bus)) {
    m_state.desktop = session.desktop;
    loop.watch(m_descriptors.fd(), [this] { m_descriptors.serve(); });
    if (!session.isWayland && !session.x11Display.empty())
        add(std::make_unique<X11Source>(m_descriptors, session.x11Display));
}

ApplicationInFront::~ApplicationInFront() = default;

void ApplicationInFront::add(std::unique_ptr<FrontSource> source) {
    source->onWindow([this](const FrontWindow& window) { take(window); });
    source->onChange([this] { tell(); });
    m_sources.push_back(std::move(source));
}

void ApplicationInFront::start() {
    m_entries.refresh();
    for (const auto& source : m_sources)
        source->start();
    tell();
}

void ApplicationInFront::take(const FrontWindow& window) {
    m_entries.refresh();
    auto application = recognise(window, m_entries, factsOf(window.pid));
    if (application == m_application)
        return;
    m_application = std::move(application);
    if (m_function)
        m_function();
    tell();
}

void ApplicationInFront::tell() {
    m_state.application = m_application.shownName;
    const auto telling = std::ranges::find_if(m_sources, [](const auto& source) { return source->tells(); });
    m_state.source = telling == m_sources.end() ? std::string_view() : (*telling)->name();
    if (m_object)
        m_object->tell(m_state);
}

} // namespace quorvi::front
