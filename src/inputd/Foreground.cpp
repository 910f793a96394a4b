#include "inputd/Foreground.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include "inputd/devices/DrivenMouse.h"

namespace quorvi::inputd {

namespace {

int fail(const std::string& what, const std::string& reason) {
    std::fprintf(stderr, "quorvi-inputd: %s: %s\n", what.c_str(), reason.c_str());
    return 1;
}

std::vector<std::uint8_t> bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Foreground final : public MouseListener, public LoopOwner {
  public:
    int run(const ForegroundRequest& request) {
        std::string reason = "too few file descriptors";
        if (!m_loop.isUsable())
            return fail(request.device, reason);
        engine::Options options;
        options.sensorDpi = request.sensorDpi;
        m_mouse.setOptions(options);
        if (!m_mouse.setRecord(bytesOf(request.record)))
            return fail(request.record, "it is not a record of 13232 bytes with a profile");
        if (const auto node = InputNode::open(request.device, reason); !node)
            return fail(request.device, reason);
        else if (!node->isMouse())
            return fail(request.device, "it is not a mouse");
        else if (isOwnDevice(node->name()))
            return fail(request.device, "it is a device of this program's");
        else if (!node->grab()) // released again at once; the mouse itself is grabbed when all keys are up
            return fail(request.device, "another program has it for itself");
        if (!m_keyboard.make(reason) || !m_mouse.attach({request.device}, reason))
            return fail(request.device, reason);
        m_isAttached = true;
        m_loop.run(*this);
        return m_mouse.state() == MouseState::absent ? fail(request.device, "the device has gone") : 0;
    }

    void mouseChanged(DrivenMouse& mouse) override {
        if (m_isAttached && mouse.state() == MouseState::absent)
            m_loop.end();
    }
    void inputChanged(DrivenMouse& /*mouse*/, std::uint8_t /*input*/, bool /*pressed*/) override {}
    void codeChanged(DrivenMouse& /*mouse*/, std::uint16_t /*code*/, bool /*pressed*/) override {}
    std::optional<std::chrono::microseconds> beforeWait() override { return {}; }
    std::optional<engine::Time> nextWake() override { return m_mouse.nextWake(); }
    void wake() override { m_mouse.wake(steadyNow()); }

  private:
    Loop m_loop;
    SharedKeyboard m_keyboard;
    bool m_isAttached = false;
    DrivenMouse m_mouse{m_loop, m_keyboard, *this};
};

} // namespace

int runInForeground(const ForegroundRequest& request) {
    return Foreground().run(request);
}

} // namespace quorvi::inputd
