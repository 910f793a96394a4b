// Records for the engine, built without a tree by writing values at their offsets.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "model/ConfigRecord.h"

namespace quorvi::test {

/// A record with profile 1, without functions, with one stage of 1600 DPI.
class TestRecord {
  public:
    TestRecord();

    /// Profiles, stages and inputs count from 1. Naming a profile puts it in use.
    TestRecord& profile(int number);
    TestRecord& active(int profile, int stage);
    TestRecord& function(int profile, int input, int command, int param1 = 0, int param2 = 0);
    TestRecord& stages(int profile, const std::vector<std::pair<int, int>>& dpi, int defaultStage = 1);
    /// Into the slot (0 to 69), as bytes of the step code.
    TestRecord& macro(int slot, int macroId, const std::vector<std::uint8_t>& steps, std::uint32_t delay = 0);

    [[nodiscard]] std::span<const std::uint8_t> bytes() const;
    [[nodiscard]] ConfigRecord& raw() { return m_record; }

  private:
    [[nodiscard]] ProfileRecord& used(int number);

    ConfigRecord m_record{};
};

} // namespace quorvi::test
