// Delays that the user types into the list of steps.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

#include "macros/DelayText.h"
#include "widgets/FilledText.h"

namespace quorvi {

class Notices;

class TypedDelays final {
  public:
    /// The notices must outlive it.
    TypedDelays(const PanelText& text, Notices& notices);

    /// The delay exactly, in milliseconds.
    [[nodiscard]] QString text(std::int32_t milliseconds) const;
    /// The delay in milliseconds. For anything else nothing; then the bar at the foot says why, until a delay
    /// is typed.
    [[nodiscard]] std::optional<std::int32_t> read(const QString& typed);
    /// That delays can be typed, and how.
    [[nodiscard]] QString explanation() const;

  private:
    [[nodiscard]] DelayLanguage language() const;
    [[nodiscard]] QString refusal(DelayFault fault, const QString& typed) const;

    PanelText m_text;
    Notices& m_notices;
    bool m_hasRefused = false; ///< and the bar may say so still
};

} // namespace quorvi
