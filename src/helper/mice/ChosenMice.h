// The mice that the user has chosen, and their set-up, stored by model in the helper's own file.
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
    std::string name; ///< the mouse's own
    bool inUse = false;
    std::uint16_t dpi = 0; ///< of the sensor, set by the user; 0 if not set
    engine::ButtonCodes codes = engine::usualButtonCodes;
};

class ChosenMice {
  public:
    /// The most mice that are stored.
    static constexpr std::size_t most = 64;

    /// Reads the file. Missing values, and those out of bounds, get their defaults. An unreadable file, or
    /// one of another kind, counts as empty, and is kept as a copy at the first write.
    explicit ChosenMice(std::filesystem::path file);

    [[nodiscard]] std::vector<std::string> models() const;
    [[nodiscard]] ChosenMouse find(const std::string& model) const;
    [[nodiscard]] bool anyInUse() const;

    /// Writes the file at once, readable only by its user. Returns false and changes nothing if that fails or
    /// there are too many.
    [[nodiscard]] bool set(const std::string& model, const ChosenMouse& mouse);

  private:
    [[nodiscard]] plist::Dictionary mice() const;
    [[nodiscard]] bool write(const plist::Dictionary& tree);
    [[nodiscard]] bool keepAside() const;

    std::filesystem::path m_file;
    plist::Dictionary m_tree; ///< including unknown keys
    bool m_isUnreadable = false;
};

} // namespace quorvi
