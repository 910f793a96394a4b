// Copies of the current profile's sensitivity stages, which the stages editor changes.
#pragma once

#include <cstdint>

#include "plist/Value.h"

namespace quorvi {

class Document;

/// While the editor is closed there are none, and nothing changes them.
class EditedStages {
  public:
    /// Copies the current profile with its stages, and which of them is in use.
    void copyFrom(const Document& document);
    /// Stores the copies in the current profile, and has the selected stage in use. False when there is
    /// nothing to store, or no profile.
    [[nodiscard]] bool storeIn(Document& document) const;
    void forget();

    [[nodiscard]] bool areOpen() const { return m_settings && m_profile; }
    [[nodiscard]] plist::Array stages() const;
    /// The selected stage, from 0; -1 when there is none.
    [[nodiscard]] std::int32_t index() const;
    [[nodiscard]] plist::Dictionary stage() const;

    /// Selects the stage, which the profile starts in from then on; nothing for another index.
    void select(std::int32_t index);
    /// Adds a copy of the selected stage behind it and selects the copy. False when there is no room.
    bool duplicate();
    /// Removes the selected stage and selects the next one. False while only two are left.
    bool remove();
    // The resolution of the selected stage, in DPI; for X that of Y as well while the stage has no axes of
    // their own. False when no stage is selected.
    bool setX(int resolution);
    bool setY(int resolution);
    bool setIndependentAxes(bool independent);

  private:
    plist::Dictionary m_settings;
    plist::Dictionary m_profile;
};

} // namespace quorvi
