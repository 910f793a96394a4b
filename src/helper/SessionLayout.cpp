#include "helper/SessionLayout.h"

#include <utility>

#include "layouts/LetterKeys.h"

namespace quorvi {

using std::chrono::milliseconds;

SessionLayout::~SessionLayout() {
    if (m_layout)
        m_loop.remove(*this);
}

void SessionLayout::follow() {
    if (m_layout)
        return;
    m_layout = keyboardLayoutOfEnvironment();
    m_layout->onChange([this] { m_isOutdated = true; });
    m_loop.add(*this);
    read();
}

/// The server sends several notices of one change; process() handles them together.
milliseconds SessionLayout::timeout() const {
    return milliseconds(m_isOutdated ? 0 : -1);
}

void SessionLayout::process() {
    m_layout->process();
    if (m_isOutdated)
        read();
}

void SessionLayout::read() {
    m_isOutdated = false; // before reading, because the next change may arrive during it
    if (const auto layout = m_layout->layout(); layout && m_keys)
        m_keys(letterKeysOf(*layout));
}

} // namespace quorvi
