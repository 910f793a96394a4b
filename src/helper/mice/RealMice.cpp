#include "helper/mice/RealMice.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include <linux/input-event-codes.h>

#include "events/HelperInterface.h"
#include "events/InputdInterface.h"
#include "helper/mice/Connection.h"
#include "model/CommandCodes.h"
#include "model/ConfigRecord.h"

namespace quorvi {

using namespace std::chrono_literals;

namespace {

/// A service that ends sooner after its start than this is not started again at once.
constexpr auto kSoundLife = 10s;
constexpr auto kPause = 5s;

/// Inputs that are buttons nowhere pass unchanged: a plain mouse.
constexpr engine::ButtonCodes kNoInputs{};

/// The one that a watched key is, during a set-up: the service tells of inputs, and of no other key.
constexpr std::uint8_t kWatchInput = 7;

std::vector<std::uint8_t> withoutFunctionOf(std::uint8_t input, const std::vector<std::uint8_t>& bytes) {
    ConfigRecord record;
    if (bytes.size() != sizeof record)
        return bytes;
    std::memcpy(&record, bytes.data(), sizeof record);
    for (auto& profile : record.profiles)
        profile.buttons[input - 1U] = {
            .button = input, .command = commands::noFunction, .param1 = 0, .param2 = 0};
    std::vector<std::uint8_t> changed(bytes.size());
    std::memcpy(changed.data(), &record, sizeof record);
    return changed;
}

DeviceEntry entryOf(const ListedMouse& mouse, std::uint16_t index) {
    return {
        .vendorID = mouse.vendor,
        .productID = mouse.product,
        .releaseNum = 0,
        .interfaceNum = 0,
        .busPower = 0,
        .locationID = index + 1U,
        .deviceIndex = index,
        .reserved2 = 0,
        .reserved3 = 0,
    };
}

} // namespace

RealMice::RealMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener)
    : m_listener(listener), m_chosen(std::move(chosen)), m_bus(loop, [this] { followBus(); }) {
    followBus();
    loop.watch(m_restart.fd(), [this] {
        m_restart.set({});
        refresh();
    });
}

RealMice::~RealMice() = default;

/// With a bus that has gone goes all that the service has said on it; a set-up goes on when it is back. One
/// that has come is asked for the service, as at the start.
void RealMice::followBus() {
    const bool hadLink = m_link != nullptr;
    m_link.reset();
    if (hadLink) {
        m_restart.set({});
        m_listsAgain = false;
        listed(InputdResult::noService, {});
    }
    if (!m_bus.get())
        return;
    InputdListener& inputdListener = *this;
    m_link = std::make_unique<InputdLink>(m_bus.get(), inputdListener);
    if (!m_record.empty())
        start();
}

void RealMice::start() {
    if (m_chosen.anyInUse())
        refresh();
}

void RealMice::setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) {
    if (std::ranges::equal(m_record, record) && m_options.acceleration == acceleration)
        return;
    m_record.assign(record.begin(), record.end());
    m_options.acceleration = acceleration;
    updateAll();
}

void RealMice::setMacrosAreQuiet(bool quiet) {
    if (std::exchange(m_options.macrosAreQuiet, quiet) != quiet)
        updateAll();
}

void RealMice::setLetterKeys(const engine::LetterKeys& keys) {
    if (std::exchange(m_options.letterKeys, keys) != keys)
        updateAll();
}

std::vector<DeviceEntry> RealMice::devices() const {
    std::vector<DeviceEntry> devices;
    for (const auto& [id, mouse] : m_mice)
        if (mouse.isOurs && mouse.isPluggedIn && devices.size() < kDeviceListCapacity)
            devices.push_back(entryOf(mouse.listed, static_cast<std::uint16_t>(devices.size())));
    return devices;
}

bool RealMice::anyInUse() const {
    if (!m_hasService)
        return false;
    const auto isRefused = [this](const std::string& model) {
        return std::ranges::any_of(
            m_mice, [&](const auto& each) { return each.second.isRefused && each.second.model() == model; });
    };
    return std::ranges::any_of(m_chosen.models(),
        [&](const auto& model) { return m_chosen.find(model).inUse && !isRefused(model); });
}

std::uint16_t RealMice::pressedInputs() const {
    std::uint16_t inputs = 0;
    for (const auto& [id, mouse] : m_mice)
        inputs = static_cast<std::uint16_t>(inputs | mouse.status.inputs);
    return inputs;
}

void RealMice::list(std::function<void(std::vector<MouseEntry>)> answer) {
    if (!m_link)
        return answer(entries());
    m_waiting.push_back(std::move(answer));
    refresh();
}

std::vector<MouseEntry> RealMice::entries() const {
    std::vector<MouseEntry> entries;
    std::set<std::string> shown;
    for (const auto& [id, mouse] : m_mice) {
        if (!mouse.isPluggedIn)
            continue;
        const auto chosen = m_chosen.find(mouse.model());
        const std::string state = mouse.isOurs      ? mouse.status.state
                                  : mouse.isRefused ? helperinterface::kStateRefused
                                  : mouse.isCalling ? helperinterface::kStateAsking
                                                    : helperinterface::kStateUnused;
        entries.push_back({id, mouse.listed.name, connectionOf(mouse.listed.vendor, mouse.listed.product),
            chosen.inUse, state, mouse.listed.dpi, chosen.dpi, chosen.codes});
        shown.insert(mouse.model());
    }
    for (const auto& model : m_chosen.models())
        if (const auto chosen = m_chosen.find(model); chosen.inUse && shown.count(model) == 0)
            entries.push_back(
                {model, chosen.name, "", true, helperinterface::kStateAbsent, 0, chosen.dpi, chosen.codes});
    return entries;
}

std::string RealMice::modelNamed(const std::string& mouse) const {
    if (const auto found = m_mice.find(mouse); found != m_mice.end())
        return found->second.model();
    const auto models = m_chosen.models();
    return std::ranges::find(models, mouse) != models.end() ? mouse : std::string();
}

MouseResult RealMice::change(const std::string& mouse, const std::function<void(ChosenMouse&)>& change) {
    const auto model = modelNamed(mouse);
    if (model.empty())
        return MouseResult::noSuchMouse;
    auto chosen = m_chosen.find(model);
    if (const auto found = m_mice.find(mouse); found != m_mice.end())
        chosen.name = found->second.listed.name;
    change(chosen);
    return m_chosen.set(model, chosen) ? MouseResult::done : MouseResult::notWritten;
}

MouseResult RealMice::use(const std::string& mouse, bool inUse) {
    const auto result = change(mouse, [inUse](ChosenMouse& chosen) { chosen.inUse = inUse; });
    if (result != MouseResult::done)
        return result;
    const auto model = modelNamed(mouse);
    for (auto& [id, each] : m_mice) {
        if (each.model() != model)
            continue;
        each.isRefused = false;
        if (!inUse && std::exchange(each.isOurs, false))
            m_link->forget(id);
    }
    std::erase_if(m_mice, [](const auto& each) { return !each.second.isPluggedIn && !each.second.isOurs; });
    updateAll();
    tell();
    return result;
}

MouseResult RealMice::setDpi(const std::string& mouse, std::uint16_t dpi) {
    if (dpi != 0 && (dpi < engine::lowestSensorDpi || dpi > engine::highestSensorDpi))
        return MouseResult::invalid;
    const auto result = change(mouse, [dpi](ChosenMouse& chosen) { chosen.dpi = dpi; });
    if (result == MouseResult::done) {
        updateAll();
        tell();
    }
    return result;
}

MouseResult RealMice::setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) {
    const auto isCode = [](std::uint16_t code) { return code <= KEY_MAX; };
    if (codes.size() != engine::buttonInputs || !std::ranges::all_of(codes, isCode))
        return MouseResult::invalid;
    const auto result =
        change(mouse, [&](ChosenMouse& chosen) { std::ranges::copy(codes, chosen.codes.begin()); });
    if (result == MouseResult::done) {
        updateAll();
        tell();
    }
    return result;
}

MouseResult RealMice::beginSetUp(const std::string& mouse) {
    const auto* found = find(mouse);
    if (!found)
        return MouseResult::noSuchMouse;
    if (!found->isOurs)
        return MouseResult::notInUse;
    if (m_inSetUp != mouse)
        endSetUp();
    m_inSetUp = mouse;
    m_link->watchCodes(mouse, true);
    updateAll();
    return MouseResult::done;
}

void RealMice::endSetUp() {
    if (const auto mouse = std::exchange(m_inSetUp, {}); !mouse.empty()) {
        if (m_link)
            m_link->watchCodes(mouse, false);
        m_watchedKey = 0;
        watch();
        updateAll();
    }
}

MouseResult RealMice::watchKey(std::uint16_t code) {
    if (m_inSetUp.empty())
        return MouseResult::notInUse;
    if (code > KEY_MAX)
        return MouseResult::invalid;
    if (std::exchange(m_watchedKey, code) != code) {
        watch();
        updateAll();
    }
    return MouseResult::done;
}

void RealMice::setShown(bool shown) {
    if (std::exchange(m_isShown, shown) == shown)
        return;
    if (shown && m_link && m_chosen.anyInUse() && !m_hasService)
        refresh(); // it may have been installed since
    watch();
}

/// What is pressed is wanted as long as there is a panel to show it, or a key to wait for; the profile and
/// stage as long as a mouse is in use.
void RealMice::watch() {
    if (std::ranges::any_of(m_mice, [](const auto& each) { return each.second.isOurs; }))
        m_link->watch(m_isShown || m_watchedKey != 0);
}

void RealMice::serviceCame() {
    m_cameAt = Timer::Clock::now();
    m_restart.set({});
    forgetAll();
    // A list that was asked for has started it, and is on its way.
    if (m_chosen.anyInUse() && !m_isListing)
        refresh();
}

/// The mice are plain ones meanwhile. Asking it for its list starts it again.
void RealMice::serviceLeft() {
    forgetAll();
    if (!m_chosen.anyInUse())
        return;
    const auto now = Timer::Clock::now();
    m_restart.set(now - m_cameAt < kSoundLife ? now + kPause : now);
}

void RealMice::forgetAll() {
    for (auto& [id, mouse] : m_mice) {
        mouse.isOurs = false;
        mouse.isRefused = false;
        mouse.status = {};
    }
}

void RealMice::refresh() {
    if (!m_link || std::exchange(m_isListing, true)) {
        m_listsAgain = m_isListing;
        return;
    }
    m_link->list([this](InputdResult result, const std::vector<ListedMouse>& mice) { listed(result, mice); });
}

void RealMice::listed(InputdResult result, const std::vector<ListedMouse>& mice) {
    m_isListing = false;
    if (std::exchange(m_listsAgain, false))
        return refresh();
    if (result == InputdResult::done) {
        m_hasService = true;
        takeOver(mice);
    } else if (result != InputdResult::failed) {
        // None of them is this user's now; what was refused may be asked for again when they are.
        m_hasService = false;
        m_mice.clear();
    }
    tell();
    for (const auto& answer : std::exchange(m_waiting, {}))
        answer(entries());
}

void RealMice::takeOver(const std::vector<ListedMouse>& mice) {
    for (auto& [id, mouse] : m_mice)
        mouse.isPluggedIn = false;
    for (const auto& each : mice) {
        auto& mouse = m_mice[each.id];
        mouse.listed = each;
        mouse.isPluggedIn = true;
        // The service forgets a mouse whose user is away from the machine.
        mouse.isOurs = mouse.isOurs && each.used;
    }
    std::erase_if(m_mice, [](const auto& each) { return !each.second.isPluggedIn && !each.second.isOurs; });
    for (auto& [id, mouse] : m_mice)
        if (!mouse.isOurs)
            update(mouse);
}

void RealMice::updateAll() {
    for (auto& [id, mouse] : m_mice)
        update(mouse);
}

/// One call at a time for each mouse, so that a slider that is dragged does not fill the connection when the
/// service is slow: what comes meanwhile is sent with the next.
void RealMice::update(Mouse& mouse) {
    if (m_record.empty() || mouse.isRefused || !m_chosen.find(mouse.model()).inUse)
        return;
    if (std::exchange(mouse.isCalling, true)) {
        mouse.isOutdated = true;
        return;
    }
    mouse.isOutdated = false;
    const auto answer = [this, id = mouse.listed.id](InputdResult result) { updated(id, result); };
    if (mouse.isPluggedIn)
        return m_link->use(mouse.listed.id, recordOf(mouse), optionsOf(mouse), answer);
    m_link->setOptions(mouse.listed.id, optionsOf(mouse), [](InputdResult) {});
    m_link->setRecord(mouse.listed.id, recordOf(mouse), answer);
}

void RealMice::updated(const std::string& id, InputdResult result) {
    auto* mouse = find(id);
    if (!mouse)
        return;
    mouse->isCalling = false;
    const bool wasOurs = mouse->isOurs;
    const bool isChosen = m_chosen.find(mouse->model()).inUse;
    // A call that came to nothing has changed nothing.
    mouse->isOurs = result == InputdResult::done || (result == InputdResult::failed && wasOurs);
    mouse->isRefused = result == InputdResult::denied;
    if (mouse->isOurs && !isChosen) { // the user has changed their mind
        mouse->isOurs = false;
        m_link->forget(id);
    }
    if (mouse->isOurs && mouse->isOutdated)
        update(*mouse);
    if (mouse->isOurs == wasOurs && !mouse->isRefused)
        return;
    if (mouse->isOurs) {
        watch();
        if (id == m_inSetUp)
            m_link->watchCodes(id, true); // it was away, or the service was
        m_link->status(id, [this, id](const MouseStatus& status) { statusChanged(id, status); });
    }
    tell();
}

engine::Options RealMice::optionsOf(const Mouse& mouse) const {
    const auto chosen = m_chosen.find(mouse.model());
    auto options = m_options;
    if (chosen.dpi != 0)
        options.sensorDpi = chosen.dpi;
    else if (mouse.listed.dpi != 0)
        options.sensorDpi = std::clamp(mouse.listed.dpi, engine::lowestSensorDpi, engine::highestSensorDpi);
    options.buttonCodes = chosen.codes;
    if (mouse.listed.id == m_inSetUp) {
        options.buttonCodes = kNoInputs;
        options.buttonCodes[kWatchInput - 1U] = m_watchedKey;
    }
    return options;
}

std::vector<std::uint8_t> RealMice::recordOf(const Mouse& mouse) const {
    const bool watchesKey = mouse.listed.id == m_inSetUp && m_watchedKey != 0;
    return watchesKey ? withoutFunctionOf(kWatchInput, m_record) : m_record;
}

void RealMice::statusChanged(const std::string& id, const MouseStatus& status) {
    auto* mouse = find(id);
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
    auto* mouse = find(id);
    if (!mouse || !mouse->isOurs || input < 1 || input > limits::buttons)
        return;
    if (id == m_inSetUp && input == kWatchInput)
        return m_listener.codeChanged(id, m_watchedKey, pressed);
    const auto bit = static_cast<std::uint16_t>(input <= engine::buttonInputs ? 1U << (input - 1U) : 0U);
    mouse->status.inputs =
        static_cast<std::uint16_t>(pressed ? mouse->status.inputs | bit : mouse->status.inputs & ~bit);
    m_listener.inputChanged(id, input, pressed);
}

void RealMice::codeChanged(const std::string& id, std::uint16_t code, bool pressed) {
    if (id == m_inSetUp)
        m_listener.codeChanged(id, code, pressed);
}

/// Whoever looks at the news asks for the list, which is news again unless it is compared.
void RealMice::tell() {
    Told now{entries(), anyInUse(), hasService()};
    if (m_told == now)
        return;
    m_told = std::move(now);
    m_listener.miceChanged();
}

RealMice::Mouse* RealMice::find(const std::string& id) {
    const auto found = m_mice.find(id);
    return found == m_mice.end() ? nullptr : &found->second;
}

} // namespace quorvi
