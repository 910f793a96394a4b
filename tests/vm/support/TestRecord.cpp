#include "vm/support/TestRecord.h"

#include <algorithm>
#include <fstream>

#include "model/Sensitivity.h"

namespace quorvi::test {

namespace {
constexpr std::uint8_t emptyName = 0xFF;
constexpr int usualDpi = 1600;
} // namespace

TestRecord::TestRecord() {
    for (std::size_t i = 0; i < m_record.profiles.size(); ++i) {
        m_record.profiles[i].number = static_cast<std::uint8_t>(i + 1);
        m_record.profileNames[i].name.fill(emptyName);
    }
    m_record.settings = {1, 1, 1, dpiToCode(usualDpi), dpiToCode(usualDpi)};
    make(1);
}

void TestRecord::make(int profile) {
    const auto slot = static_cast<std::size_t>(profile - 1);
    if (m_record.profileNames[slot].name[0] != emptyName)
        return;
    m_record.profileNames[slot].name.fill(0);
    m_record.profileNames[slot].name[0] = 'P';
    stages(profile, {{usualDpi, usualDpi}});
}

TestRecord& TestRecord::set(
    int profile, int input, std::uint8_t command, std::uint8_t param1, std::uint8_t param2) {
    make(profile);
    m_record.profiles[static_cast<std::size_t>(profile - 1)].buttons[static_cast<std::size_t>(input - 1)] = {
        static_cast<std::uint8_t>(input), command, param1, param2};
    return *this;
}

TestRecord& TestRecord::stages(int profile, std::initializer_list<std::pair<int, int>> dpi) {
    auto& record = m_record.profiles[static_cast<std::size_t>(profile - 1)];
    record.defaultStage = 1;
    record.stageCount = static_cast<std::uint8_t>(dpi.size());
    std::ranges::transform(dpi, record.stages.begin(), [](const auto& pair) {
        return StageEntry{dpiToCode(pair.first), dpiToCode(pair.second)};
    });
    if (profile == m_record.settings.profileId) {
        m_record.settings.dpiXCode = record.stages[0].dpiXCode;
        m_record.settings.dpiYCode = record.stages[0].dpiYCode;
    }
    return *this;
}

TestRecord& TestRecord::macro(std::uint8_t id, std::initializer_list<std::uint8_t> steps) {
    constexpr std::size_t bodyBytes = sizeof(MacroBody) - limits::stepBytes;
    auto& body = m_record.macroBodies[m_macros];
    body.name[0] = 'M';
    std::ranges::copy(steps, body.steps.begin());
    m_record.macroHeaders[m_macros] = {id, {0, static_cast<std::uint8_t>(bodyBytes + steps.size())}, 0};
    ++m_macros;
    return *this;
}

std::string TestRecord::file() const {
    const std::string path = "/tmp/test.record";
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&m_record), sizeof m_record);
    return path;
}

} // namespace quorvi::test
