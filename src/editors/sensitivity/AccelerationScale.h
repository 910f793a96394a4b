// The acceleration slider's scale: position 1 to 10 on the screen, factor 0.1 to 2.0 in the settings.
#pragma once

namespace quorvi {

/// The factor of a slider position; 0.0 outside 1 to 10. Positions below 5 slow down (0.1 to just below 0.9),
/// from 5 on they speed up (1.0 to 2.0). The jump at 5 is intended: position 5 is exactly the neutral factor
/// 1.0. Computed in double precision and narrowed at the end.
[[nodiscard]] float sliderValueToAcceleration(float sliderValue);

/// The slider position of a factor. A factor below 0.1 or above 2.0 shows as the neutral position 5.
[[nodiscard]] float accelerationToSliderValue(float acceleration);

} // namespace quorvi
