// A mouse made by uinput: to everybody else in the machine a mouse like any other.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <linux/input.h>

#include "inputd/loop/Descriptor.h"

namespace quorvi::test {

struct MouseDescription {
    std::string name = "Test mouse";
    std::uint16_t product = 1;
    /// Beside the seven buttons of usual mice.
    std::vector<std::uint16_t> moreKeys;
};

class FakeMouse {
  public:
    struct Part {
        std::uint16_t type;
        std::uint16_t code;
        int value;
    };

    /// Plugs it in, and waits until udev is done with it.
    explicit FakeMouse(const MouseDescription& description = {});

    /// Its /dev/input/eventN; empty when it could not be made.
    [[nodiscard]] const std::string& node() const { return m_node; }

    void press(std::uint16_t button) { send({{Part{EV_KEY, button, 1}}}); }
    void release(std::uint16_t button) { send({{Part{EV_KEY, button, 0}}}); }
    /// With nothing between the two.
    void click(std::uint16_t button) { send({{Part{EV_KEY, button, 1}}, {Part{EV_KEY, button, 0}}}); }
    void move(int x, int y) { send({{Part{EV_REL, REL_X, x}, Part{EV_REL, REL_Y, y}}}); }
    /// Away from the user when positive, in both resolutions as mice of today send it.
    void turn(int notches) {
        send({{Part{EV_REL, REL_WHEEL, notches}, Part{EV_REL, REL_WHEEL_HI_RES, notches * 120}}});
    }
    void unplug() { m_fd.reset(); }

    /// Frames at once, as one write; the SYN_REPORT of each is added.
    void send(std::initializer_list<std::vector<Part>> frames);

  private:
    inputd::Descriptor m_fd;
    std::string m_node;
};

/// Waits until udev has nothing left to do.
void settleUdev();

} // namespace quorvi::test
