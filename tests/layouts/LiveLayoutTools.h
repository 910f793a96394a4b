// Reading the live layout in a test.
#pragma once

#include <poll.h>

#include "layouts/LayoutWitness.h"
#include "layouts/LiveKeyboardLayout.h"
#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"

namespace quorvi::test {

/// Counts the announced changes of a layout and waits for them.
class Changes {
  public:
    explicit Changes(LiveKeyboardLayout& live) : m_live(live) {
        live.onChange([this] { ++m_count; });
    }
    ~Changes() { m_live.onChange(nullptr); }
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

    [[nodiscard]] int count() const { return m_count; }

    /// Whether there is something to read.
    [[nodiscard]] bool isReadable(
        std::chrono::milliseconds patience = std::chrono::milliseconds::zero()) const {
        pollfd watched{m_live.fd(), POLLIN, 0};
        return poll(&watched, 1, static_cast<int>(patience.count())) > 0;
    }

    /// Waits for the next change; false when none comes or the connection is lost first.
    [[nodiscard]] bool wait() {
        const int before = m_count;
        while (m_count == before && m_live.fd() >= 0 && isReadable(kPatience))
            m_live.process();
        return m_count != before;
    }

    /// Reads all that has come.
    void drain() const {
        while (m_live.fd() >= 0 && isReadable())
            m_live.process();
    }

  private:
    LiveKeyboardLayout& m_live;
    int m_count = 0;
};

/// Names the keys by the layout from now on.
inline void nameKeysBy(LiveKeyboardLayout& live) {
    SetCurrentKeyboardLayout(live.layout());
    ASSERT_EQ(GetKeyboardInformation(nullptr), 0);
}

inline void expectKeysAreNamedBy(LiveKeyboardLayout& live, const LayoutCase& expected) {
    SCOPED_TRACE(std::string(expected.layout) + " " + expected.variant);
    nameKeysBy(live);
    const Witness witness(expected);
    expectMainKeysAreNamedBy(witness);
    expectKeypadKeysAreNamedBy(witness);
}

/// What the key right of Tab is named.
inline std::u16string nameOfFirstLetter(LiveKeyboardLayout& live) {
    nameKeysBy(live);
    return GetKeyName(0x0C);
}

/// Makes a configured layout that no display server here has, so that it is known when it is used.
struct ConfiguredDvorak {
    EnvironmentVariable layout{"XKB_DEFAULT_LAYOUT", "us"};
    EnvironmentVariable variant{"XKB_DEFAULT_VARIANT", "dvorak"};
};
inline constexpr char16_t firstLetterOfDvorak[] = u"'";

} // namespace quorvi::test
