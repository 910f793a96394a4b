#include "inputd/devices/UsedMice.h"

#include <algorithm>
#include <cstdio>

namespace quorvi::inputd {

UsedMice::UsedMice(Loop& loop, UsedMiceListener& listener) : m_loop(loop), m_listener(listener) {}

UsedMice::Result UsedMice::use(
    const Mouse& mouse, uid_t owner, std::span<const std::uint8_t> record, const engine::Options& options) {
    // Do not start from another user's state.
    forgetIf([&](const UsedMouse& used) { return used.id == mouse.id && used.owner != owner; });
    if (auto* used = find(mouse.id)) {
        if (!used->driven.setRecord(record))
            return Result::notARecord;
        setOptions(*used, options);
        return Result::done;
    }
    if (m_mice.size() >= most)
        return Result::tooMany;
    MouseListener& listener = *this;
    auto fresh = std::make_unique<UsedMouse>(mouse, owner, m_loop, m_keyboard, listener);
    fresh->driven.setOptions(options);
    if (!fresh->driven.setRecord(record))
        return Result::notARecord;
    if (std::string reason; !m_keyboard.make(reason)) {
        std::fprintf(stderr, "%s\n", reason.c_str());
        return Result::noDevice;
    }
    m_mice.push_back(std::move(fresh));
    attach(*m_mice.back());
    return Result::done;
}

bool UsedMice::setRecord(UsedMouse& mouse, std::span<const std::uint8_t> record) {
    return mouse.driven.setRecord(record);
}

void UsedMice::setOptions(UsedMouse& mouse, const engine::Options& options) {
    mouse.driven.setOptions(options);
    attach(mouse); // an input may be on another node now
}

void UsedMice::forgetIf(const std::function<bool(const UsedMouse&)>& condition) {
    const auto kept = std::stable_partition(
        m_mice.begin(), m_mice.end(), [&](const auto& mouse) { return !condition(*mouse); });
    std::vector<std::unique_ptr<UsedMouse>> gone(
        std::make_move_iterator(kept), std::make_move_iterator(m_mice.end()));
    m_mice.erase(kept, m_mice.end());
    for (const auto& mouse : gone) {
        mouse->driven.detach();
        m_listener.forgotten(*mouse);
    }
}

UsedMouse* UsedMice::find(const std::string& id) const {
    const auto found = std::ranges::find_if(m_mice, [&](const auto& mouse) { return mouse->id == id; });
    return found == m_mice.end() ? nullptr : found->get();
}

void UsedMice::pluggedIn(std::vector<Mouse> mice) {
    m_pluggedIn = std::move(mice);
    for (const auto& mouse : m_mice)
        attach(*mouse);
}

void UsedMice::goToSleep() {
    m_sleeps = true;
    for (const auto& mouse : m_mice)
        mouse->driven.detach();
}

void UsedMice::wakeUp() {
    m_sleeps = false;
    for (const auto& mouse : m_mice)
        attach(*mouse);
}

/// Updates the mouse's nodes to the present ones.
void UsedMice::attach(UsedMouse& mouse) {
    const auto found = std::ranges::find(m_pluggedIn, mouse.id, &Mouse::id);
    if (m_sleeps || found == m_pluggedIn.end())
        return mouse.driven.detach();
    const auto nodes = nodesToGrab(*found, mouse.driven.options().buttonCodes);
    if (nodes == mouse.driven.nodes())
        return;
    if (std::string reason; !mouse.driven.attach(nodes, reason))
        std::fprintf(stderr, "%s: %s\n", mouse.id.c_str(), reason.c_str());
}

std::optional<engine::Time> UsedMice::nextWake() const {
    std::optional<engine::Time> first;
    for (const auto& mouse : m_mice)
        if (const auto wanted = mouse->driven.nextWake(); wanted && (!first || *wanted < *first))
            first = wanted;
    return first;
}

void UsedMice::wake() {
    const auto now = steadyNow();
    for (const auto& mouse : m_mice)
        mouse->driven.wake(now);
}

const UsedMouse* UsedMice::ownerOf(const DrivenMouse& mouse) const {
    const auto found =
        std::ranges::find_if(m_mice, [&](const auto& used) { return &used->driven == &mouse; });
    return found == m_mice.end() ? nullptr : found->get();
}

void UsedMice::mouseChanged(DrivenMouse& mouse) {
    // A mouse being added or forgotten is not in the list.
    if (const auto* used = ownerOf(mouse))
        m_listener.statusChanged(*used);
}

void UsedMice::inputChanged(DrivenMouse& mouse, std::uint8_t input, bool pressed) {
    if (const auto* used = ownerOf(mouse))
        m_listener.inputChanged(*used, input, pressed);
}

void UsedMice::codeChanged(DrivenMouse& mouse, std::uint16_t code, bool pressed) {
    if (const auto* used = ownerOf(mouse))
        m_listener.codeChanged(*used, code, pressed);
}

} // namespace quorvi::inputd
