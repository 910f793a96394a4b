#include "helper/mice/RealMice.h"

#include <algorithm>
#include <utility>

#include <linux/input-event-codes.h>

#include "events/InputdInterface.h"

namespace quorvi {

RealMice::RealMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener)
    : m_listener(listener), m_mice(std::move(chosen)),
      m_service(
          loop, *this,
          [this](InputdResult result, const std::vector<ListedMouse>& mice) { listed(result, mice); },
          [this] {
              if (m_orders.hasRecord())
                  start();
          }),
      m_driver(m_mice, m_orders, m_service, *this, [this] { tell(); }),
      m_setUp(m_mice, m_orders, m_service, m_driver) {}

RealMice::~RealMice() = default;

void RealMice::start() {
    if (m_mice.anyChosen())
        m_service.refresh();
}

void RealMice::setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) {
    if (m_orders.setRecord(record, acceleration))
        m_driver.updateAll();
}

void RealMice::setMacrosAreQuiet(bool quiet) {
    if (m_orders.setMacrosAreQuiet(quiet))
        m_driver.updateAll();
}

void RealMice::setLetterKeys(const engine::LetterKeys& keys) {
    if (m_orders.setLetterKeys(keys))
        m_driver.updateAll();
}

bool RealMice::anyInUse() const {
    return hasService() && m_mice.anyToUse();
}

void RealMice::list(std::function<void(std::vector<MouseEntry>)> answer) {
    if (!m_service.link())
        return answer(m_mice.entries());
    m_waiting.push_back(std::move(answer));
    m_service.refresh();
}

MouseResult RealMice::use(const std::string& mouse, bool inUse) {
    const auto result = m_mice.choose(mouse, [inUse](ChosenMouse& chosen) { chosen.inUse = inUse; });
    if (result != MouseResult::done)
        return result;
    for (auto* each : m_mice.alike(mouse)) {
        each->isRefused = false;
        if (!inUse)
            m_driver.release(*each);
    }
    m_mice.dropAbsent();
    m_driver.updateAll();
    tell();
    return result;
}

MouseResult RealMice::setDpi(const std::string& mouse, std::uint16_t dpi) {
    if (dpi != 0 && (dpi < engine::lowestSensorDpi || dpi > engine::highestSensorDpi))
        return MouseResult::invalid;
    return change(mouse, [dpi](ChosenMouse& chosen) { chosen.dpi = dpi; });
}

MouseResult RealMice::setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) {
    const auto isCode = [](std::uint16_t code) { return code <= KEY_MAX; };
    if (codes.size() != engine::buttonInputs || !std::ranges::all_of(codes, isCode))
        return MouseResult::invalid;
    return change(mouse, [&](ChosenMouse& chosen) { std::ranges::copy(codes, chosen.codes.begin()); });
}

MouseResult RealMice::change(const std::string& mouse, const std::function<void(ChosenMouse&)>& change) {
    const auto result = m_mice.choose(mouse, change);
    if (result == MouseResult::done) {
        m_driver.updateAll();
        tell();
    }
    return result;
}

void RealMice::setShown(bool shown) {
    if (!m_orders.setShown(shown))
        return;
    if (shown && m_service.link() && m_mice.anyChosen() && !hasService())
        m_service.refresh(); // the service may have been installed since
    m_driver.watch();
}

void RealMice::serviceCame() {
    m_service.noteStart();
    m_mice.disown();
    // A pending list request has already started it.
    if (m_mice.anyChosen() && !m_service.isListing())
        m_service.refresh();
}

/// Until it returns, the mice are plain ones.
void RealMice::serviceLeft() {
    m_mice.disown();
    if (m_mice.anyChosen())
        m_service.restart();
}

/// A set-up continues when the service is back.
void RealMice::listed(InputdResult result, const std::vector<ListedMouse>& mice) {
    if (result == InputdResult::done) {
        m_mice.takeOver(mice);
        m_driver.updateOthers();
    } else if (result != InputdResult::failed) {
        // None of them is this user's now; a refused one may be requested again later.
        m_mice.clear();
    }
    tell();
    for (const auto& answer : std::exchange(m_waiting, {}))
        answer(m_mice.entries());
}

void RealMice::statusChanged(const std::string& id, const MouseStatus& status) {
    auto* mouse = m_mice.find(id);
    if (!mouse || !mouse->isOurs)
        return;
    const bool isOther = mouse->status.state != status.state;
    mouse->status = status;
    if (status.state == inputd::kStateUnused)
        mouse->isOurs = false;
    else
        noteRunning(status);
    if (isOther)
        tell();
}

void RealMice::noteRunning(const MouseStatus& status) {
    const engine::Running running{status.profile, status.stage, status.dpiX, status.dpiY};
    if (running.profile != 0 && std::exchange(m_running, running) != running)
        m_listener.runningChanged();
}

void RealMice::inputChanged(const std::string& id, std::uint8_t input, bool pressed) {
    auto* mouse = m_mice.find(id);
    if (!mouse || !mouse->isOurs || input < 1 || input > limits::buttons)
        return;
    if (const auto& inSetUp = m_orders.inSetUp(); id == inSetUp.id && input == MouseOrders::watchInput)
        return m_listener.codeChanged(id, inSetUp.watchedKey, pressed);
    const auto bit = static_cast<std::uint16_t>(input <= engine::buttonInputs ? 1U << (input - 1U) : 0U);
    mouse->status.inputs =
        static_cast<std::uint16_t>(pressed ? mouse->status.inputs | bit : mouse->status.inputs & ~bit);
    m_listener.inputChanged(id, input, pressed);
}

void RealMice::codeChanged(const std::string& id, std::uint16_t code, bool pressed) {
    if (id == m_orders.inSetUp().id)
        m_listener.codeChanged(id, code, pressed);
}

/// A client that is notified requests the list again, so notify only if it differs.
void RealMice::tell() {
    Told now{m_mice.entries(), anyInUse(), hasService()};
    if (m_told == now)
        return;
    m_told = std::move(now);
    m_listener.miceChanged();
}

} // namespace quorvi
