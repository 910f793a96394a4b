// The mice that the helper knows, and what their user has chosen for each.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "events/DeviceList.h"
#include "events/HelperObject.h"
#include "helper/mice/ChosenMice.h"
#include "helper/mice/InputdLink.h"

namespace quorvi {

struct KnownMouse {
    ListedMouse listed;
    MouseStatus status;
    bool isPluggedIn = false;
    bool isOurs = false;     ///< the service drives it for us
    bool isRefused = false;  ///< the user has no permission; not requested again automatically
    bool isCalling = false;  ///< an answer is pending; no other call is sent
    bool isOutdated = false; ///< the service does not have the latest changes
    [[nodiscard]] std::string model() const { return modelOf(listed.vendor, listed.product); }
};

/// The mice that are plugged in or ours. A mouse is identified by its id, or by its model while unplugged.
class KnownMice {
  public:
    /// Stores the chosen mice in that file.
    explicit KnownMice(std::filesystem::path chosen) : m_chosen(std::move(chosen)) {}

    /// By id.
    [[nodiscard]] std::map<std::string, KnownMouse>& all() { return m_mice; }
    /// Null for none.
    [[nodiscard]] KnownMouse* find(const std::string& id);
    /// All mice of the same model.
    [[nodiscard]] std::vector<KnownMouse*> alike(const std::string& mouse);

    /// Replaces the list of plugged-in mice.
    void takeOver(const std::vector<ListedMouse>& mice);
    /// Notes that the service has forgotten all mice.
    void disown();
    void dropAbsent();
    void clear() { m_mice.clear(); }

    [[nodiscard]] ChosenMouse chosen(const KnownMouse& mouse) const { return m_chosen.find(mouse.model()); }
    [[nodiscard]] bool anyChosen() const { return m_chosen.anyInUse(); }
    /// Whether a chosen mouse has not been refused, plugged in or not.
    [[nodiscard]] bool anyToUse() const;
    /// Changes this mouse's stored settings.
    [[nodiscard]] MouseResult choose(
        const std::string& mouse, const std::function<void(ChosenMouse&)>& change);

    [[nodiscard]] bool anyOurs() const;
    /// The plugged-in or chosen mice, for clients.
    [[nodiscard]] std::vector<MouseEntry> entries() const;
    /// The plugged-in mice that follow the settings, for the device list.
    [[nodiscard]] std::vector<DeviceEntry> devices() const;
    /// Bit 0 is input 1; of all of them.
    [[nodiscard]] std::uint16_t pressedInputs() const;

  private:
    /// Empty for an unknown mouse.
    [[nodiscard]] std::string modelNamed(const std::string& mouse) const;

    ChosenMice m_chosen;
    std::map<std::string, KnownMouse> m_mice;
};

} // namespace quorvi
