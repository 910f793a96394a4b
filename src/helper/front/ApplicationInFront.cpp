#include "helper/front/ApplicationInFront.h"

#include <algorithm>
#include <utility>

#include "helper/front/KWinSource.h"
#include "helper/front/Recognition.h"
#include "helper/front/WlrootsSource.h"
#include "helper/front/X11Source.h"

namespace quorvi::front {

ApplicationInFront::ApplicationInFront(EventBus& bus, EventLoop& loop, const Session& session)
    : m_bus(bus), m_loop(loop), m_object(FrontObject::offer(bus)) {
    m_state.desktop = session.desktop;
    addSources(session);
}

ApplicationInFront::~ApplicationInFront() = default;

/// Ignores a compositor's X server, which knows only X11 windows.
void ApplicationInFront::addSources(const Session& session) {
    if (!session.isWayland) {
        if (!session.x11Display.empty())
            add(std::make_unique<X11Source>(m_loop, session.x11Display));
        return;
    }
    add(std::make_unique<KWinSource>(m_bus, m_loop, m_reports, session.resources / "kwin-front.js"));
    auto gnome = std::make_unique<GnomeSource>(m_bus, m_reports);
    if (m_object)
        m_object->onEnableGnomeExtension([shell = gnome.get()] { shell->enableExtension(); });
    m_gnome = gnome.get();
    add(std::move(gnome));
    if (!session.waylandSocket.empty())
        add(std::make_unique<WlrootsSource>(m_loop, session.waylandSocket));
}

void ApplicationInFront::add(std::unique_ptr<FrontSource> source) {
    source->onWindow([this](const FrontWindow& window) { take(window); });
    source->onChange([this] { tell(); });
    m_sources.push_back(std::move(source));
}

void ApplicationInFront::start() {
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
    if (m_gnome)
        m_state.gnomeExtension = m_gnome->extension();
    if (m_object)
        m_object->tell(m_state);
}

} // namespace quorvi::front
