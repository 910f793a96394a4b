// The bus interface to this computer's mice and to the running profile.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "events/HelperObject.h"
#include "helper/Announcements.h"

namespace quorvi {

class MouseControls final : public HelperControls {
  public:
    /// Offers them on the bus while it lives, and connects the announcements to the bus. All arguments must
    /// outlive it.
    MouseControls(const EventBus& bus, AllMice& mice, Clients& clients, Announcements& announcements);
    ~MouseControls() override;
    MouseControls(const MouseControls&) = delete;
    MouseControls& operator=(const MouseControls&) = delete;

    void listMice(std::function<void(std::vector<MouseEntry>)> answer) override;
    [[nodiscard]] MouseResult useMouse(const std::string& mouse, bool inUse) override;
    [[nodiscard]] MouseResult setDpi(const std::string& mouse, std::uint16_t dpi) override;
    [[nodiscard]] MouseResult setCodes(
        const std::string& mouse, std::span<const std::uint16_t> codes) override;
    [[nodiscard]] MouseResult beginSetUp(
        const std::string& mouse, const ProcessSerialNumber& caller) override;
    [[nodiscard]] MouseResult watchKey(std::uint16_t code, const ProcessSerialNumber& caller) override;
    void endSetUp(const ProcessSerialNumber& caller) override;
    [[nodiscard]] bool hasService() const override { return m_mice.real().hasService(); }
    [[nodiscard]] bool isDemonstration() const override { return m_mice.isDemonstration(); }
    [[nodiscard]] std::uint32_t runningProfile() const override { return m_mice.running().profile; }
    [[nodiscard]] std::uint32_t runningStage() const override { return m_mice.running().stage; }
    [[nodiscard]] std::string frontReason() const override { return m_announcements.frontReason(); }
    [[nodiscard]] std::uint16_t pressedInputs() const override { return m_mice.pressedInputs(); }

  private:
    AllMice& m_mice;
    Clients& m_clients;
    Announcements& m_announcements;
    std::unique_ptr<HelperObject> m_object; ///< null if the bus refuses it
};

} // namespace quorvi
