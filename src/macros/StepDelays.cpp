#include "macros/StepDelays.h"

#include "macros/StepOrders.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

void setDelayForAllSteps(const plist::Array& steps, std::int32_t milliseconds) {
    const std::size_t count = steps.size();
    for (std::size_t index = 0; index < count; ++index)
        steps.dictionary(index).set(keys::delay, index + 1 < count ? milliseconds : 0);
}

MultipliedDelays multiplyDelays(
    const plist::Array& steps, const StepPlaces& indices, std::int32_t thousandths) {
    constexpr std::int64_t kWhole = 1000;
    constexpr std::int64_t kLongest{limits::longestDelay};
    MultipliedDelays result;
    for (const std::size_t index : indices.empty() ? unchangedOrder(steps.size()) : indices) {
        const auto step = steps.dictionary(index);
        const std::int64_t delay = step ? step.integer(keys::delay) : 0;
        if (delay <= 0 || delay > kLongest)
            continue;
        const std::int64_t product = (delay * thousandths + kWhole / 2) / kWhole;
        result.tooLong += product > kLongest ? 1 : 0;
        const std::int64_t kept = product > kLongest ? kLongest : product;
        if (kept == delay)
            continue;
        step.set(keys::delay, static_cast<std::int32_t>(kept));
        ++result.changed;
    }
    return result;
}

} // namespace quorvi
