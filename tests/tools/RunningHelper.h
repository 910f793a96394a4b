// The real helper on a private bus, for the verbs that talk to it.
#pragma once

#include "events/BusFixture.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {

class RunningHelper : public BusTest {
  protected:
    void startHelper() {
        helper = std::make_unique<ChildProcess>(
            std::vector<std::string>{QUORVI_HELPER}, std::vector{"HOME=" + m_home.path().string()});
        ASSERT_TRUE(
            waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) == noErr; }));
    }
    std::unique_ptr<ChildProcess> helper;

  private:
    TemporaryFolder m_home;
};

} // namespace quorvi::test
