#include "support/Accessible.h"

#include <cstdlib>

#include <systemd/sd-bus.h>

namespace quorvi::test {

namespace {

constexpr char kAccessible[] = "org.a11y.atspi.Accessible";
constexpr char kAction[] = "org.a11y.atspi.Action";
constexpr char kComponent[] = "org.a11y.atspi.Component";
constexpr char kEditableText[] = "org.a11y.atspi.EditableText";
constexpr char kTable[] = "org.a11y.atspi.Table";
constexpr char kText[] = "org.a11y.atspi.Text";
constexpr char kValue[] = "org.a11y.atspi.Value";

constexpr std::uint32_t kScreenCoordinates = 0;
constexpr std::uint32_t kLabelledBy = 2;

std::string readText(sd_bus_message* message) {
    const char* text = nullptr;
    return message && sd_bus_message_read(message, "s", &text) > 0 ? text : "";
}

bool readFlag(sd_bus_message* message) {
    int flag = 0;
    return message && sd_bus_message_read(message, "b", &flag) > 0 && flag != 0;
}

} // namespace

Accessible::Accessible(std::shared_ptr<sd_bus> bus, std::string program, std::string path)
    : m_bus(std::move(bus)), m_program(std::move(program)), m_path(std::move(path)) {}

template <typename... Arguments>
Accessible::Message Accessible::call(
    const char* interface, const char* method, const char* types, Arguments... arguments) const {
    sd_bus_message* reply = nullptr;
    if (!isNull())
        static_cast<void>(sd_bus_call_method(m_bus.get(), m_program.c_str(), m_path.c_str(), interface,
            method, nullptr, &reply, types, arguments...));
    return {reply, [](sd_bus_message* message) { sd_bus_message_unref(message); }};
}

std::string Accessible::textProperty(const char* interface, const char* property) const {
    char* text = nullptr;
    if (isNull() || sd_bus_get_property_string(m_bus.get(), m_program.c_str(), m_path.c_str(), interface,
                        property, nullptr, &text) < 0)
        return {};
    const std::unique_ptr<char, decltype(&std::free)> owned(text, std::free);
    return owned.get();
}

int Accessible::numberProperty(const char* interface, const char* property) const {
    std::int32_t number = 0;
    if (!isNull())
        static_cast<void>(sd_bus_get_property_trivial(
            m_bus.get(), m_program.c_str(), m_path.c_str(), interface, property, nullptr, 'i', &number));
    return number;
}

Accessible Accessible::readReference(sd_bus_message* message) const {
    const char* program = nullptr;
    const char* path = nullptr;
    if (!message || sd_bus_message_read(message, "(so)", &program, &path) <= 0)
        return {};
    return {m_bus, program, path};
}

std::string Accessible::name() const {
    return textProperty(kAccessible, "Name");
}

std::string Accessible::description() const {
    return textProperty(kAccessible, "Description");
}

std::string Accessible::role() const {
    return readText(call(kAccessible, "GetRoleName", "").get());
}

AccessibleStates Accessible::states() const {
    const Message reply = call(kAccessible, "GetState", "");
    const void* words = nullptr;
    std::size_t size = 0;
    if (!reply || sd_bus_message_read_array(reply.get(), 'u', &words, &size) <= 0 || size == 0)
        return AccessibleStates();
    const auto* word = static_cast<const std::uint32_t*>(words);
    constexpr int kBitsInWord = 32;
    std::uint64_t bits = *word;
    if (size >= sizeof bits)
        bits |= std::uint64_t(word[1]) << kBitsInWord;
    return AccessibleStates(bits);
}

Accessible Accessible::parent() const {
    sd_bus_message* reply = nullptr;
    if (isNull() || sd_bus_get_property(m_bus.get(), m_program.c_str(), m_path.c_str(), kAccessible, "Parent",
                        nullptr, &reply, "(so)") < 0)
        return {};
    const Message owned(reply, [](sd_bus_message* message) { sd_bus_message_unref(message); });
    return readReference(owned.get());
}

std::vector<Accessible> Accessible::children() const {
    std::vector<Accessible> result;
    const Message reply = call(kAccessible, "GetChildren", "");
    if (!reply || sd_bus_message_enter_container(reply.get(), 'a', "(so)") <= 0)
        return result;
    for (Accessible child = readReference(reply.get()); !child.m_program.empty();
         child = readReference(reply.get()))
        if (!child.isNull())
            result.push_back(child);
    return result;
}

std::string Accessible::label() const {
    const Message reply = call(kAccessible, "GetRelationSet", "");
    if (!reply || sd_bus_message_enter_container(reply.get(), 'a', "(ua(so))") <= 0)
        return {};
    while (sd_bus_message_enter_container(reply.get(), 'r', "ua(so)") > 0) {
        std::uint32_t relation = 0;
        if (sd_bus_message_read(reply.get(), "u", &relation) <= 0 ||
            sd_bus_message_enter_container(reply.get(), 'a', "(so)") <= 0)
            return {};
        const Accessible target = readReference(reply.get());
        if (relation == kLabelledBy)
            return target.name();
        while (!readReference(reply.get()).m_program.empty()) {
        }
        sd_bus_message_exit_container(reply.get());
        sd_bus_message_exit_container(reply.get());
    }
    return {};
}

Extents Accessible::extents() const {
    const Message reply = call(kComponent, "GetExtents", "u", kScreenCoordinates);
    Extents place;
    if (reply)
        static_cast<void>(
            sd_bus_message_read(reply.get(), "(iiii)", &place.left, &place.top, &place.width, &place.height));
    return place;
}

std::vector<std::string> Accessible::actions() const {
    std::vector<std::string> names;
    const int count = numberProperty(kAction, "NActions");
    for (int index = 0; index < count; ++index)
        names.push_back(readText(call(kAction, "GetName", "i", index).get()));
    return names;
}

bool Accessible::perform(const std::string& action) const {
    const auto names = actions();
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (names[index] != action)
            continue;
        return readFlag(call(kAction, "DoAction", "i", static_cast<int>(index)).get());
    }
    return false;
}

std::string Accessible::text() const {
    return readText(call(kText, "GetText", "ii", 0, -1).get());
}

bool Accessible::setText(const std::string& text) const {
    return readFlag(call(kEditableText, "SetTextContents", "s", text.c_str()).get());
}

double Accessible::valueProperty(const char* property) const {
    double number = 0;
    if (!isNull())
        static_cast<void>(sd_bus_get_property_trivial(
            m_bus.get(), m_program.c_str(), m_path.c_str(), kValue, property, nullptr, 'd', &number));
    return number;
}

double Accessible::value() const {
    return valueProperty("CurrentValue");
}

double Accessible::lowestValue() const {
    return valueProperty("MinimumValue");
}

double Accessible::highestValue() const {
    return valueProperty("MaximumValue");
}

bool Accessible::setValue(double value) const {
    return !isNull() && sd_bus_set_property(m_bus.get(), m_program.c_str(), m_path.c_str(), kValue,
                            "CurrentValue", nullptr, "d", value) >= 0;
}

int Accessible::rows() const {
    return numberProperty(kTable, "NRows");
}

int Accessible::columns() const {
    return numberProperty(kTable, "NColumns");
}

Accessible Accessible::cell(int row, int column) const {
    return readReference(call(kTable, "GetAccessibleAt", "ii", row, column).get());
}

std::string Accessible::columnTitle(int column) const {
    return readText(call(kTable, "GetColumnDescription", "i", column).get());
}

bool Accessible::selectRow(int row) const {
    for (const int other : selectedRows())
        if (other != row)
            static_cast<void>(call(kTable, "RemoveRowSelection", "i", other));
    return readFlag(call(kTable, "AddRowSelection", "i", row).get());
}

std::vector<int> Accessible::selectedRows() const {
    const Message reply = call(kTable, "GetSelectedRows", "");
    const void* rows = nullptr;
    std::size_t size = 0;
    if (!reply || sd_bus_message_read_array(reply.get(), 'i', &rows, &size) <= 0)
        return {};
    const auto* first = static_cast<const std::int32_t*>(rows);
    return {first, first + size / sizeof(std::int32_t)};
}

std::vector<Accessible> everythingIn(const Accessible& top) {
    std::vector<Accessible> result{top};
    for (std::size_t next = 0; next < result.size(); ++next)
        for (const Accessible& child : result[next].children())
            if (child.is(AccessibleState::visible))
                result.push_back(child);
    return result;
}

Accessible controlOf(const Accessible& thing) {
    const std::string role = thing.role();
    return role == "cell" || role == "list item" || role == "page tab" ? thing.parent() : thing;
}

std::string spoken(const Accessible& thing) {
    return thing.isNull() ? "nothing" : thing.role() + " '" + thing.name() + "'";
}

} // namespace quorvi::test
