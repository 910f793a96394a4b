// A recording helper that also offers the helper's own objects, with the mice and the application in front
// chosen by the test.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "events/FrontObject.h"
#include "events/HelperObject.h"
#include "pane/RecordingHelper.h"

namespace quorvi::test {

/// What a TellingHelper tells.
struct ToldByHelper {
    bool service = true;
    bool demonstration = true;
    std::uint32_t profile = 1;
    std::uint32_t stage = 2;
    std::string frontReason = {};
    std::vector<MouseEntry> mice = {};
    MouseResult answer = MouseResult::done; ///< to whatever is asked of a mouse
    FrontState front{.application = {}, .source = "X11", .desktop = "TWM", .gnomeExtension = {}};
};

class TellingHelper final : public RecordingHelper, HelperControls {
  public:
    using Told = ToldByHelper;

    explicit TellingHelper(Told told = {}, const std::string& processName = "KyvarQuorviHelper");
    ~TellingHelper() override;

    /// Changes what it tells, and says so.
    void change(const std::function<void(Told&)>& change);
    /// Tells the panel that is shown, and nobody else, of an input.
    void tellInput(int input, bool pressed);
    void tellCode(std::uint16_t code, bool pressed);
    /// What was asked of it, in order: "use mouse-1 1", "enable".
    [[nodiscard]] QStringList asked() const;

  private:
    void listMice(std::function<void(std::vector<MouseEntry>)> answer) override;
    MouseResult useMouse(const std::string& mouse, bool inUse) override;
    MouseResult setDpi(const std::string& mouse, std::uint16_t dpi) override;
    MouseResult setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) override;
    MouseResult beginSetUp(const std::string& mouse, const ProcessSerialNumber& caller) override;
    MouseResult watchKey(std::uint16_t code, const ProcessSerialNumber& caller) override;
    void endSetUp(const ProcessSerialNumber& caller) override;
    [[nodiscard]] bool hasService() const override { return m_told.service; }
    [[nodiscard]] bool isDemonstration() const override { return m_told.demonstration; }
    [[nodiscard]] std::uint32_t runningProfile() const override { return m_told.profile; }
    [[nodiscard]] std::uint32_t runningStage() const override { return m_told.stage; }
    [[nodiscard]] std::string frontReason() const override { return m_told.frontReason; }
    [[nodiscard]] std::uint16_t pressedInputs() const override { return 0; }
    MouseResult note(const QString& what);

    Told m_told; ///< of the helper's thread, like the objects
    std::unique_ptr<HelperObject> m_helperObject;
    std::unique_ptr<FrontObject> m_frontObject;
    mutable std::mutex m_askedMutex;
    QStringList m_asked;
};

/// The panel that is shown; the test fails where none is.
[[nodiscard]] ProcessSerialNumber shownPanel(EventBus& bus);

} // namespace quorvi::test
