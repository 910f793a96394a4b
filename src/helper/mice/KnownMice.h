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
    bool isOurs = false;     ///< the service has it from us
    bool isRefused = false;  ///< nobody has let the user; not asked again by itself
    bool isCalling = false;  ///< an answer is waited for, and nothing else is sent meanwhile
    bool isOutdated = false; ///< something has changed that the service does not know
    [[nodiscard]] std::string model() const { return modelOf(listed.vendor, listed.product); }
};

/// Those that are plugged in or ours. A mouse is named by its id, or by its model when it is not plugged in.
class KnownMice {
  public:
    /// What is chosen is kept in that file.
    explicit KnownMice(std::filesystem::path chosen) : m_chosen(std::move(chosen)) {}

    /// By id.
    [[nodiscard]] std::map<std::string, KnownMouse>& all() { return m_mice; }
    /// Null for none.
    [[nodiscard]] KnownMouse* find(const std::string& id);
    /// All of the model of this one.
    [[nodiscard]] std::vector<KnownMouse*> alike(const std::string& mouse);

    /// These are plugged in, and no others.
    void takeOver(const std::vector<ListedMouse>& mice);
    /// The service has forgotten them all.
    void disown();
    void dropAbsent();
    void clear() { m_mice.clear(); }

    [[nodiscard]] ChosenMouse chosen(const KnownMouse& mouse) const { return m_chosen.find(mouse.model()); }
    [[nodiscard]] bool anyChosen() const { return m_chosen.anyInUse(); }
    /// A mouse is chosen whose use nobody has refused, plugged in or not.
    [[nodiscard]] bool anyToUse() const;
    /// Changes what is chosen for this mouse, and writes it down.
    [[nodiscard]] MouseResult choose(
        const std::string& mouse, const std::function<void(ChosenMouse&)>& change);

    [[nodiscard]] bool anyOurs() const;
    /// Those that are plugged in or chosen, as they are listed to others.
    [[nodiscard]] std::vector<MouseEntry> entries() const;
    /// Those that are plugged in and obey, for the device list.
    [[nodiscard]] std::vector<DeviceEntry> devices() const;
    /// Bit 0 is input 1; of all of them.
    [[nodiscard]] std::uint16_t pressedInputs() const;

  private:
    /// Empty for a mouse that is not known.
    [[nodiscard]] std::string modelNamed(const std::string& mouse) const;

    ChosenMice m_chosen;
    std::map<std::string, KnownMouse> m_mice;
};

} // namespace quorvi
