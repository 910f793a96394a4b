#include "widgets/WrappedLabel.h"

namespace quorvi {

namespace {

/// A layout alternates between a few widths; resizing a window passes through hundreds.
constexpr std::size_t kMaxHeights = 16;

} // namespace

int WrappedLabel::heightForWidth(int width) const {
    const QFontMetrics font = fontMetrics();
    if (m_measuredText != text() || m_measuredFont != font || m_heights.size() == kMaxHeights) {
        m_measuredText = text();
        m_measuredFont = font;
        m_heights.clear();
    }
    if (const auto known = m_heights.find(width); known != m_heights.end())
        return known->second;
    return m_heights[width] = QLabel::heightForWidth(width);
}

} // namespace quorvi
