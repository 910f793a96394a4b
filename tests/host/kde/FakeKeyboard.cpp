#include "host/kde/FakeKeyboard.h"

#include <array>
#include <stdexcept>

#include <fake-input-client-protocol.h>
#include <linux/input-event-codes.h>

namespace quorvi::test {

namespace {

/// With keys since 4.
constexpr std::uint32_t kVersion = 4;

constexpr std::array<std::uint32_t, 26> kLetters{KEY_A, KEY_B, KEY_C, KEY_D, KEY_E, KEY_F, KEY_G, KEY_H,
    KEY_I, KEY_J, KEY_K, KEY_L, KEY_M, KEY_N, KEY_O, KEY_P, KEY_Q, KEY_R, KEY_S, KEY_T, KEY_U, KEY_V, KEY_W,
    KEY_X, KEY_Y, KEY_Z};

void bindInput(
    void* input, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t version) {
    if (std::string_view(interface) == org_kde_kwin_fake_input_interface.name && version >= kVersion)
        *static_cast<void**>(input) =
            wl_registry_bind(registry, name, &org_kde_kwin_fake_input_interface, kVersion);
}

constexpr wl_registry_listener kListener{bindInput, [](void*, wl_registry*, std::uint32_t) {}};

} // namespace

void FakeKeyboard::Release::operator()(wl_display* display) const {
    wl_display_disconnect(display);
}

void FakeKeyboard::Release::operator()(org_kde_kwin_fake_input* input) const {
    org_kde_kwin_fake_input_destroy(input);
}

FakeKeyboard::FakeKeyboard(const std::string& socket) : m_display(wl_display_connect(socket.c_str())) {
    if (!m_display)
        throw std::runtime_error("the compositor cannot be reached");
    void* input = nullptr;
    wl_registry* registry = wl_display_get_registry(m_display.get());
    wl_registry_add_listener(registry, &kListener, &input);
    wl_display_roundtrip(m_display.get());
    wl_registry_destroy(registry);
    m_input.reset(static_cast<org_kde_kwin_fake_input*>(input));
    if (!m_input)
        throw std::runtime_error("the compositor lets nobody make a keyboard");
    org_kde_kwin_fake_input_authenticate(m_input.get(), "tests", "presses keys for a user");
}

void FakeKeyboard::press(std::initializer_list<std::uint32_t> keys) const {
    for (const auto* key = keys.begin(); key != keys.end(); ++key)
        org_kde_kwin_fake_input_keyboard_key(m_input.get(), *key, WL_KEYBOARD_KEY_STATE_PRESSED);
    for (const auto* key = keys.end(); key != keys.begin();)
        org_kde_kwin_fake_input_keyboard_key(m_input.get(), *--key, WL_KEYBOARD_KEY_STATE_RELEASED);
    wl_display_roundtrip(m_display.get());
}

void FakeKeyboard::type(std::string_view letters) const {
    for (const char letter : letters)
        press({letter == ' ' ? std::uint32_t(KEY_SPACE) : kLetters.at(std::size_t(letter - 'a'))});
}

} // namespace quorvi::test
