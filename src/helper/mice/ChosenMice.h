// Which mice their user has chosen, and how they are set up: a file of the helper's own, by the mouse's
// model.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "engine/Options.h"
#include "plist/Value.h"

namespace quorvi {

/// The model of a mouse with these USB numbers, "1e7d:2dcb".
[[nodiscard]] std::string modelOf(std::uint16_t vendor, std::uint16_t product);

/// $XDG_CONFIG_HOME/kyvar-quorvi/mice.plist, else below ~/.config; a relative $XDG_CONFIG_HOME is ignored.
/// Empty without a home folder.
[[nodiscard]] std::filesystem::path chosenMicePath();

struct ChosenMouse {
    std::string name; ///< as the mouse says
    bool inUse = false;
    std::uint16_t dpi = 0; ///< of the sensor, as the user says; 0 when they have not
    engine::ButtonCodes codes = engine::usualButtonCodes;
};

class ChosenMice {
  public:
    /// More are not kept.
    static constexpr std::size_t most = 64;

    /// Reads the file. What is missing in it, or out of bounds, has its default; a file that cannot be read
    /// or is none of ours chooses nothing, and lies beside the new one as a copy once there is something to
    /// write.
    explicit ChosenMice(std::filesystem::path file);

    [[nodiscard]] std::vector<std::string> models() const;
    [[nodiscard]] ChosenMouse find(const std::string& model) const;
    [[nodiscard]] bool anyInUse() const;

    /// Writes the file at once, for its user alone. False, with nothing changed, when that fails or there are
    /// too many.
    [[nodiscard]] bool set(const std::string& model, const ChosenMouse& mouse);

  private:
    [[nodiscard]] plist::Dictionary mice() const;
    [[nodiscard]] bool write(const plist::Dictionary& tree);
    [[nodiscard]] bool keepAside() const;

    std::filesystem::path m_file;
    plist::Dictionary m_tree; ///< with what others may have put there
    bool m_isUnreadable = false;
};

} // namespace quorvi
