// The real helper on a private bus, for the verbs that talk to it.
#pragma once

#include "events/BusFixture.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {

class RunningHelper : public BusTest {
  protected:
    void startHelper() {
        helper = std::make_unique<ChildProcess>(std::vector<std::string>{QUORVI_HELPER},
            std::vector<std::string>{"HOME=" + home.path().string(), "XDG_CONFIG_HOME"});
        ASSERT_TRUE(
            waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) == noErr; }));
    }
    std::unique_ptr<ChildProcess> helper;
    TemporaryFolder home;
};

} // namespace quorvi::test
