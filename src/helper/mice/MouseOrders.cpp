#include "helper/mice/MouseOrders.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "model/CommandCodes.h"
#include "model/ConfigRecord.h"

namespace quorvi {

namespace {

/// Without button codes all buttons pass unchanged, as on a plain mouse.
constexpr engine::ButtonCodes kNoInputs{};

std::vector<std::uint8_t> withoutFunctionOf(std::uint8_t input, const std::vector<std::uint8_t>& bytes) {
    ConfigRecord record;
    if (bytes.size() != sizeof record)
        return bytes;
    std::memcpy(&record, bytes.data(), sizeof record);
    for (auto& profile : record.profiles)
        profile.buttons[input - 1U] = {
            .button = input, .command = commands::noFunction, .param1 = 0, .param2 = 0};
    std::vector<std::uint8_t> changed(bytes.size());
    std::memcpy(changed.data(), &record, sizeof record);
    return changed;
}

} // namespace

bool MouseOrders::setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) {
    if (std::ranges::equal(m_record, record) && m_options.acceleration == acceleration)
        return false;
    m_record.assign(record.begin(), record.end());
    m_options.acceleration = acceleration;
    return true;
}

bool MouseOrders::setMacrosAreQuiet(bool quiet) {
    return std::exchange(m_options.macrosAreQuiet, quiet) != quiet;
}

bool MouseOrders::setLetterKeys(const engine::LetterKeys& keys) {
    return std::exchange(m_options.letterKeys, keys) != keys;
}

bool MouseOrders::setShown(bool shown) {
    return std::exchange(m_isShown, shown) != shown;
}

engine::Options MouseOrders::optionsFor(const ListedMouse& mouse, const ChosenMouse& chosen) const {
    auto options = m_options;
    if (chosen.dpi != 0)
        options.sensorDpi = chosen.dpi;
    else if (mouse.dpi != 0)
        options.sensorDpi = std::clamp(mouse.dpi, engine::lowestSensorDpi, engine::highestSensorDpi);
    options.buttonCodes = chosen.codes;
    if (mouse.id == m_inSetUp.id) {
        options.buttonCodes = kNoInputs;
        options.buttonCodes[watchInput - 1U] = m_inSetUp.watchedKey;
    }
    return options;
}

std::vector<std::uint8_t> MouseOrders::recordFor(const ListedMouse& mouse) const {
    const bool watchesKey = mouse.id == m_inSetUp.id && m_inSetUp.watchedKey != 0;
    return watchesKey ? withoutFunctionOf(watchInput, m_record) : m_record;
}

} // namespace quorvi
