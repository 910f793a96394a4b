#include "helper/mice/KnownMice.h"

#include <algorithm>
#include <set>

#include "events/HelperInterface.h"
#include "helper/mice/Connection.h"

namespace quorvi {

namespace {

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

KnownMouse* KnownMice::find(const std::string& id) {
    const auto found = m_mice.find(id);
    return found == m_mice.end() ? nullptr : &found->second;
}

std::vector<KnownMouse*> KnownMice::alike(const std::string& mouse) {
    const auto model = modelNamed(mouse);
    std::vector<KnownMouse*> alike;
    for (auto& [id, each] : m_mice)
        if (each.model() == model)
            alike.push_back(&each);
    return alike;
}

void KnownMice::takeOver(const std::vector<ListedMouse>& mice) {
    for (auto& [id, mouse] : m_mice)
        mouse.isPluggedIn = false;
    for (const auto& each : mice) {
        auto& mouse = m_mice[each.id];
        mouse.listed = each;
        mouse.isPluggedIn = true;
        // The service forgets a mouse whose user has left the machine.
        mouse.isOurs = mouse.isOurs && each.used;
    }
    dropAbsent();
}

void KnownMice::disown() {
    for (auto& [id, mouse] : m_mice) {
        mouse.isOurs = false;
        mouse.isRefused = false;
        mouse.status = {};
    }
}

void KnownMice::dropAbsent() {
    std::erase_if(m_mice, [](const auto& each) { return !each.second.isPluggedIn && !each.second.isOurs; });
}

bool KnownMice::anyToUse() const {
    const auto isRefused = [this](const std::string& model) {
        return std::ranges::any_of(
            m_mice, [&](const auto& each) { return each.second.isRefused && each.second.model() == model; });
    };
    return std::ranges::any_of(m_chosen.models(),
        [&](const auto& model) { return m_chosen.find(model).inUse && !isRefused(model); });
}

std::string KnownMice::modelNamed(const std::string& mouse) const {
    if (const auto found = m_mice.find(mouse); found != m_mice.end())
        return found->second.model();
    const auto models = m_chosen.models();
    return std::ranges::find(models, mouse) != models.end() ? mouse : std::string();
}

MouseResult KnownMice::choose(const std::string& mouse, const std::function<void(ChosenMouse&)>& change) {
    const auto model = modelNamed(mouse);
    if (model.empty())
        return MouseResult::noSuchMouse;
    auto chosen = m_chosen.find(model);
    if (const auto* found = find(mouse))
        chosen.name = found->listed.name;
    change(chosen);
    return m_chosen.set(model, chosen) ? MouseResult::done : MouseResult::notWritten;
}

bool KnownMice::anyOurs() const {
    return std::ranges::any_of(m_mice, [](const auto& each) { return each.second.isOurs; });
}

std::vector<MouseEntry> KnownMice::entries() const {
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

std::vector<DeviceEntry> KnownMice::devices() const {
    std::vector<DeviceEntry> devices;
    for (const auto& [id, mouse] : m_mice)
        if (mouse.isOurs && mouse.isPluggedIn && devices.size() < kDeviceListCapacity)
            devices.push_back(entryOf(mouse.listed, static_cast<std::uint16_t>(devices.size())));
    return devices;
}

std::uint16_t KnownMice::pressedInputs() const {
    std::uint16_t inputs = 0;
    for (const auto& [id, mouse] : m_mice)
        inputs = static_cast<std::uint16_t>(inputs | mouse.status.inputs);
    return inputs;
}

} // namespace quorvi
