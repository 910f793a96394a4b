#include "inputd/devices/MouseGroups.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdio>
#include <map>
#include <utility>

#include "inputd/devices/OutputDevice.h"

namespace quorvi::inputd {

namespace {

constexpr std::size_t kBitsPerWord = sizeof(unsigned long) * CHAR_BIT;

bool isPrintable(char c) {
    return c > ' ' && c <= '~';
}

/// For ids: a device's own texts may be any bytes.
std::string plainText(const std::string& text) {
    std::string plain = text;
    std::ranges::replace_if(
        plain, [](char c) { return !isPrintable(c); }, '_');
    return plain;
}

/// For display. Names of input devices are nearly always ASCII.
std::string shownName(const std::string& text) {
    std::string shown = text;
    std::ranges::replace_if(
        shown, [](char c) { return c != ' ' && !isPrintable(c); }, '?');
    return shown;
}

std::string idOf(const NodeFacts& facts) {
    std::array<char, 16> numbers{};
    std::snprintf(numbers.data(), numbers.size(), "%04x:%04x:", facts.vendor, facts.product);
    return numbers.data() + plainText(facts.unique.empty() ? facts.place : facts.unique);
}

Mouse mouseOf(std::vector<NodeFacts> nodes) {
    std::ranges::stable_sort(nodes, std::ranges::greater(), &NodeFacts::isMouse);
    const auto& first = nodes.front();
    Mouse mouse{idOf(first), shownName(first.name), first.seat, first.vendor, first.product, 0, {}};
    for (const auto& node : nodes)
        mouse.dpi = std::max(mouse.dpi, node.dpi);
    mouse.nodes = std::move(nodes);
    return mouse;
}

} // namespace

KeyBits parseKeyBits(std::string_view text) {
    KeyBits bits;
    for (std::size_t lowest = 0; !text.empty(); lowest += kBitsPerWord) {
        const auto space = text.rfind(' ');
        const auto word = space == std::string_view::npos ? text : text.substr(space + 1);
        unsigned long value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
        if (error != std::errc() || end != word.data() + word.size())
            return {};
        for (std::size_t bit = 0; bit < kBitsPerWord && lowest + bit < bits.size(); ++bit)
            bits[lowest + bit] = (value >> bit & 1) != 0;
        text = space == std::string_view::npos ? std::string_view() : text.substr(0, space);
    }
    return bits;
}

std::string groupOf(std::span<const Ancestor> nearestFirst) {
    const auto bySubsystem = [](std::string_view subsystem) {
        return [subsystem](const Ancestor& ancestor) { return ancestor.subsystem == subsystem; };
    };
    const auto hid = std::ranges::find_if(nearestFirst, bySubsystem("hid"));
    const bool paired =
        hid != nearestFirst.end() && std::any_of(std::next(hid), nearestFirst.end(), bySubsystem("hid"));
    if (paired)
        return hid->path;
    if (const auto usb = std::ranges::find(nearestFirst, "usb_device", &Ancestor::type);
        usb != nearestFirst.end())
        return usb->path;
    if (hid != nearestFirst.end())
        return hid->path;
    return nearestFirst.empty() ? std::string() : nearestFirst.front().path;
}

std::vector<Mouse> groupMice(std::span<const NodeFacts> nodes) {
    std::map<std::string, std::vector<NodeFacts>> groups;
    for (const auto& node : nodes)
        if (!isOwnDevice(node.name))
            groups[node.group].push_back(node);
    std::vector<Mouse> mice;
    for (auto& [group, members] : groups)
        if (std::ranges::any_of(members, &NodeFacts::isMouse))
            mice.push_back(mouseOf(std::move(members)));
    std::ranges::stable_sort(mice, {}, &Mouse::id);
    // The place distinguishes several mice with the same number.
    std::string earlier;
    for (auto& mouse : mice)
        if (std::exchange(earlier, mouse.id) == mouse.id)
            mouse.id.append("@").append(plainText(mouse.nodes.front().group));
    std::ranges::sort(mice, {}, &Mouse::id);
    return mice;
}

std::vector<std::string> nodesToGrab(const Mouse& mouse, const engine::ButtonCodes& codes) {
    KeyBits missing;
    for (const auto code : codes)
        if (code != 0 && code < missing.size())
            missing.set(code);
    std::vector<std::string> wanted;
    for (const auto& node : mouse.nodes)
        if (node.isMouse) {
            wanted.push_back(node.node);
            missing &= ~node.keys;
        }
    for (const auto& node : mouse.nodes)
        if (!node.isMouse && (node.keys & missing).any())
            wanted.push_back(node.node);
    return wanted;
}

} // namespace quorvi::inputd
