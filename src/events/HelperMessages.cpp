#include "events/HelperMessages.h"

#include <algorithm>
#include <string_view>

#include "events/FrontInterface.h"
#include "events/HelperInterface.h"

namespace quorvi::events {

namespace {

using namespace helperinterface;

std::string textOf(const char* text) {
    return text ? text : "";
}

bool contentIs(sd_bus_message* variant, const char* signature) {
    char type = 0;
    const char* contents = nullptr;
    return sd_bus_message_peek_type(variant, &type, &contents) > 0 && type == SD_BUS_TYPE_VARIANT &&
           std::string_view(contents) == signature;
}

/// Returns false and reads nothing if the variant holds another type.
bool readVariant(sd_bus_message* message, bool& value) {
    int read = 0;
    if (!contentIs(message, "b") || sd_bus_message_read(message, "v", "b", &read) <= 0)
        return false;
    value = read != 0;
    return true;
}

bool readVariant(sd_bus_message* message, std::uint32_t& value) {
    return contentIs(message, "u") && sd_bus_message_read(message, "v", "u", &value) > 0;
}

bool readVariant(sd_bus_message* message, std::string& value) {
    const char* read = nullptr;
    if (!contentIs(message, "s") || sd_bus_message_read(message, "v", "s", &read) <= 0)
        return false;
    value = textOf(read);
    return true;
}

bool readKnownProperty(sd_bus_message* message, std::string_view name, HelperNews& state) {
    if (name == kService)
        return readVariant(message, state.hasService);
    if (name == kDemonstration)
        return readVariant(message, state.demonstration);
    if (name == kRunningProfile)
        return readVariant(message, state.runningProfile);
    if (name == kRunningStage)
        return readVariant(message, state.runningStage);
    if (name == kFrontReason)
        return readVariant(message, state.frontReason);
    if (name == frontinterface::kSource)
        return state.followsFront = readVariant(message, state.frontSource);
    if (name == frontinterface::kDesktop)
        return readVariant(message, state.desktop);
    if (name == frontinterface::kGnomeExtension)
        return readVariant(message, state.gnomeExtension);
    return false;
}

void readCodes(sd_bus_message* message, ListedHelperMouse& mouse) {
    const void* codes = nullptr;
    std::size_t bytes = 0;
    if (sd_bus_message_read_array(message, 'q', &codes, &bytes) > 0)
        std::copy_n(static_cast<const std::uint16_t*>(codes),
            std::min(bytes / sizeof(std::uint16_t), mouse.codes.size()), mouse.codes.begin());
}

void readFixedThings(sd_bus_message* message, ListedHelperMouse& mouse) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") < 0)
        return;
    for (const char* what = nullptr; sd_bus_message_read_basic(message, 's', &what) > 0;) {
        mouse.fixedPollingRate |= std::string_view(what) == kCannotPollingRate;
        mouse.fixedLights |= std::string_view(what) == kCannotLights;
    }
    sd_bus_message_exit_container(message);
}

bool readMouse(sd_bus_message* list, ListedHelperMouse& mouse) {
    if (sd_bus_message_enter_container(list, SD_BUS_TYPE_STRUCT, kMouseMembers) <= 0)
        return false;
    const char* id = nullptr;
    const char* name = nullptr;
    const char* connection = nullptr;
    const char* state = nullptr;
    int inUse = 0;
    if (sd_bus_message_read(
            list, "sssbsqq", &id, &name, &connection, &inUse, &state, &mouse.hardwareDpi, &mouse.dpi) <= 0)
        return false;
    mouse.id = textOf(id);
    mouse.name = textOf(name);
    mouse.connection = textOf(connection);
    mouse.inUse = inUse != 0;
    mouse.state = textOf(state);
    readCodes(list, mouse);
    readFixedThings(list, mouse);
    return sd_bus_message_exit_container(list) >= 0;
}

} // namespace

std::vector<ListedHelperMouse> readMice(sd_bus_message* list, std::size_t most) {
    std::vector<ListedHelperMouse> mice;
    if (sd_bus_message_enter_container(list, SD_BUS_TYPE_ARRAY, kMouse) < 0)
        return mice;
    for (ListedHelperMouse mouse; mice.size() < most && readMouse(list, mouse); mouse = ListedHelperMouse{})
        mice.push_back(mouse);
    return mice;
}

void readProperties(sd_bus_message* properties, HelperNews& state) {
    if (sd_bus_message_enter_container(properties, SD_BUS_TYPE_ARRAY, "{sv}") < 0)
        return;
    while (sd_bus_message_enter_container(properties, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char* name = nullptr;
        if (sd_bus_message_read_basic(properties, 's', &name) <= 0)
            return;
        if (!readKnownProperty(properties, name, state))
            sd_bus_message_skip(properties, "v");
        sd_bus_message_exit_container(properties);
    }
}

} // namespace quorvi::events
