#include "macros/StepMaking.h"

#include "model/Keys.h"

namespace quorvi {

plist::Dictionary makeStep(std::uint32_t code, std::uint8_t argument, std::int32_t delay) {
    auto step = plist::Dictionary::create();
    step.set(keys::command, static_cast<std::int32_t>(code));
    step.set(keys::argument, std::int32_t{argument});
    step.set(keys::delay, delay);
    return step;
}

} // namespace quorvi
