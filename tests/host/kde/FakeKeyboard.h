// A keyboard created by a client of KWin.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

struct org_kde_kwin_fake_input;
struct wl_display;

namespace quorvi::test {

class FakeKeyboard {
  public:
    /// The socket is a path. Throws when the compositor there has no such keyboards.
    explicit FakeKeyboard(const std::string& socket);

    /// Presses the keys, by their codes of the input layer, and lets go of them the other way round. Returns
    /// when the compositor has them.
    void press(std::initializer_list<std::uint32_t> keys) const;
    /// Types small letters and blanks where the keyboard has the layout of the United States.
    void type(std::string_view letters) const;

  private:
    struct Release {
        void operator()(wl_display* display) const;
        void operator()(org_kde_kwin_fake_input* input) const;
    };
    std::unique_ptr<wl_display, Release> m_display;
    std::unique_ptr<org_kde_kwin_fake_input, Release> m_input;
};

} // namespace quorvi::test
