#include "inputd/devices/NodeList.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace quorvi::inputd {

namespace {

struct EnumeratorReleaser {
    void operator()(sd_device_enumerator* enumerator) const { sd_device_enumerator_unref(enumerator); }
};

std::string property(sd_device* device, const char* name) {
    const char* value = nullptr;
    return sd_device_get_property_value(device, name, &value) >= 0 ? value : "";
}

std::string attribute(sd_device* device, const char* name) {
    const char* value = nullptr;
    return sd_device_get_sysattr_value(device, name, &value) >= 0 ? value : "";
}

/// Returns 0 for any text that is not a number.
std::uint16_t number(std::string_view text, int base) {
    std::uint16_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, base);
    return value;
}

/// From udev's "400@125 *800@125 1600@125": the marked one is the mouse's default, else the first.
std::uint16_t dpiOf(std::string_view text) {
    const auto mark = text.find('*');
    return number(mark == std::string_view::npos ? text : text.substr(mark + 1), 10);
}

/// Calls an sd-device function that returns a text; empty if there is none.
template <typename Function>
std::string textOf(sd_device* device, Function function) {
    const char* value = nullptr;
    return function(device, &value) >= 0 && value ? value : "";
}

std::vector<Ancestor> ancestorsOf(sd_device* device) {
    std::vector<Ancestor> ancestors;
    // The child owns its parent.
    for (sd_device* parent = nullptr; sd_device_get_parent(device, &parent) >= 0; device = parent)
        ancestors.push_back({textOf(parent, sd_device_get_syspath), textOf(parent, sd_device_get_subsystem),
            textOf(parent, sd_device_get_devtype)});
    return ancestors;
}

std::string lastPart(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

bool isNode(sd_device* device) {
    return textOf(device, sd_device_get_sysname).starts_with("event");
}

NodeFacts factsOf(sd_device* device) {
    NodeFacts facts;
    facts.node = textOf(device, sd_device_get_devname);
    facts.isMouse = property(device, "ID_INPUT_MOUSE") == "1";
    facts.dpi = dpiOf(property(device, "MOUSE_DPI"));
    if (auto seat = property(device, "ID_SEAT"); !seat.empty())
        facts.seat = std::move(seat);
    const auto ancestors = ancestorsOf(device);
    facts.group = groupOf(ancestors);
    sd_device* input = nullptr;
    if (sd_device_get_parent(device, &input) < 0)
        return facts;
    facts.name = attribute(input, "name");
    facts.vendor = number(attribute(input, "id/vendor"), 16);
    facts.product = number(attribute(input, "id/product"), 16);
    facts.unique = attribute(input, "uniq");
    facts.keys = parseKeyBits(attribute(input, "capabilities/key"));
    // A USB device is named after its port; others report their place, or have only their number.
    const bool hasPort = std::ranges::any_of(ancestors, [&](const Ancestor& ancestor) {
        return ancestor.path == facts.group && ancestor.type == "usb_device";
    });
    const auto physical = attribute(input, "phys");
    facts.place = hasPort || physical.empty() ? lastPart(facts.group) : physical;
    return facts;
}

} // namespace

NodeList::NodeList(sd_event* loop, std::function<void()> changed)
    : m_loop(loop), m_changed(std::move(changed)) {}

bool NodeList::start() {
    // First listen, then read, so that none is missed in between.
    sd_device_monitor* monitor = nullptr;
    const bool made = sd_device_monitor_new(&monitor) >= 0;
    m_monitor.reset(monitor);
    const bool listens =
        made && sd_device_monitor_filter_add_match_subsystem_devtype(monitor, "input", nullptr) >= 0 &&
        sd_device_monitor_attach_event(monitor, m_loop) >= 0 &&
        sd_device_monitor_start(monitor, received, this) >= 0;
    sd_device_enumerator* enumerator = nullptr;
    if (sd_device_enumerator_new(&enumerator) < 0)
        return false;
    const std::unique_ptr<sd_device_enumerator, EnumeratorReleaser> owner(enumerator);
    sd_device_enumerator_add_match_subsystem(enumerator, "input", 1);
    sd_device_enumerator_add_match_sysname(enumerator, "event*");
    for (auto* device = sd_device_enumerator_get_device_first(enumerator); device;
         device = sd_device_enumerator_get_device_next(enumerator))
        // udev reports devices that it has not finished later.
        if (sd_device_get_is_initialized(device) > 0)
            add(device);
    return listens;
}

std::vector<Mouse> NodeList::mice() const {
    std::vector<NodeFacts> nodes;
    for (const auto& [path, facts] : m_nodes)
        nodes.push_back(facts);
    return groupMice(nodes);
}

int NodeList::received(sd_device_monitor* /*monitor*/, sd_device* device, void* self) {
    auto& list = *static_cast<NodeList*>(self);
    if (!isNode(device))
        return 0;
    sd_device_action_t action = SD_DEVICE_CHANGE;
    sd_device_get_action(device, &action);
    if (action == SD_DEVICE_REMOVE)
        list.m_nodes.erase(textOf(device, sd_device_get_syspath));
    else
        list.add(device);
    list.m_changed();
    return 0;
}

void NodeList::add(sd_device* device) {
    m_nodes.insert_or_assign(textOf(device, sd_device_get_syspath), factsOf(device));
}

} // namespace quorvi::inputd
