#include "engine/Position.h"

#include <algorithm>

#include "model/Sensitivity.h"

namespace quorvi::engine {

void Position::start() {
    m_profile = m_configuration.activeProfile();
    m_stage = m_configuration.validStage(m_profile, m_configuration.settings().stage);
    update();
}

void Position::stayOnRecord() {
    if (!m_configuration.hasProfile(m_profile))
        return start();
    m_stage = m_configuration.validStage(m_profile, m_stage);
    update();
}

void Position::switchToProfile(int number) {
    if (number == m_profile || !m_configuration.hasProfile(number))
        return;
    m_profile = static_cast<std::uint8_t>(number);
    m_stage = m_configuration.defaultStage(m_profile);
    update();
}

void Position::goToProfileBeside(int direction) {
    switchToProfile(m_configuration.profileBeside(m_profile, direction));
}

void Position::step(int direction) {
    const int count = m_configuration.stageCount(m_profile);
    if (count > 0)
        m_stage = static_cast<std::uint8_t>(std::clamp(m_stage + direction, 1, count));
    update();
}

void Position::cycle() {
    const auto count = m_configuration.stageCount(m_profile);
    if (count > 0)
        m_stage = static_cast<std::uint8_t>(m_stage % count + 1);
    update();
}

void Position::holdLowest() {
    ++m_lowestHolds;
    update();
}

void Position::releaseLowest() {
    m_lowestHolds = std::max(0, m_lowestHolds - 1);
    update();
}

void Position::releaseAll() {
    m_lowestHolds = 0;
    update();
}

void Position::update() {
    m_running = {};
    if (m_profile == 0)
        return;
    const auto stage = m_lowestHolds > 0 ? m_configuration.lowestStage(m_profile) : m_stage;
    const auto codes = m_configuration.sensitivity(m_profile, stage);
    m_running = {m_profile, stage, static_cast<std::uint16_t>(codeToDpi(codes.dpiXCode)),
        static_cast<std::uint16_t>(codeToDpi(codes.dpiYCode))};
}

} // namespace quorvi::engine
