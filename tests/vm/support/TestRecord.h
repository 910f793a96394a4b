// Records for tests, put together field by field.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "model/ConfigRecord.h"

namespace quorvi::test {

/// One profile without stages but one of 1600 DPI, in which nothing has a function of its own.
class TestRecord {
  public:
    TestRecord();

    /// The input of the profile does that. Makes the profile when it is not there.
    TestRecord& set(
        int profile, int input, std::uint8_t command, std::uint8_t param1 = 0, std::uint8_t param2 = 0);
    /// The stages of the profile, in DPI; the first is its default.
    TestRecord& stages(int profile, std::initializer_list<std::pair<int, int>> dpi);
    /// The profile's steps as byte code (model/StepCode.h).
    TestRecord& macro(std::uint8_t id, std::initializer_list<std::uint8_t> steps);

    [[nodiscard]] const ConfigRecord& record() const { return m_record; }
    /// As a file, readable by everybody; its path.
    [[nodiscard]] std::string file() const;

  private:
    void make(int profile);

    ConfigRecord m_record{};
    std::size_t m_macros = 0;
};

} // namespace quorvi::test
