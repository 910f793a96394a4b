// Copies of the current profile's sensitivity stages, which the stages editor changes.
#pragma once

#include <cstdint>

#include "plist/Value.h"

namespace quorvi {

class Document;

/// While the editor is closed there are none, and all changes are ignored.
class EditedStages {
  public:
    /// Copies the current profile with its stages, and the current stage's index.
    void copyFrom(const Document& document);
    /// Stores the copies in the current profile, and makes the selected stage the one in use. Returns false
    /// without copies or a profile.
    [[nodiscard]] bool storeIn(Document& document) const;
    void forget();

    [[nodiscard]] bool areOpen() const { return m_settings && m_profile; }
    [[nodiscard]] plist::Array stages() const;
    /// The selected stage, from 0; -1 for none.
    [[nodiscard]] std::int32_t index() const;
    [[nodiscard]] plist::Dictionary stage() const;

    /// Selects the stage and makes it the profile's default. Does nothing if the index is out of range.
    void select(std::int32_t index);
    /// Adds a copy after the selected stage and selects it. Returns false if there is no room.
    bool duplicate();
    /// Removes the selected stage and selects the next one. Returns false if only two are left.
    bool remove();
    // The resolution of the selected stage, in DPI; setX() sets Y too unless the stage has separate axes.
    // Returns false if no stage is selected.
    bool setX(int resolution);
    bool setY(int resolution);
    bool setIndependentAxes(bool independent);

  private:
    plist::Dictionary m_settings;
    plist::Dictionary m_profile;
};

} // namespace quorvi
