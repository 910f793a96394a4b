#include "widgets/ContentColumn.h"

#include <algorithm>

#include "widgets/Metrics.h"

namespace quorvi {

ContentSpan contentSpan(int pageWidth, int needed) {
    const int usual = pageWidth - 2 * metrics::pageMargin;
    const bool isNarrow = pageWidth < metrics::narrowWidth || needed > usual;
    const int widest = isNarrow ? pageWidth - 2 * metrics::narrowPageMargin : usual;
    const int width = std::min(widest, std::max(needed, metrics::maxContentWidth));
    return {.margin = (pageWidth - width) / 2, .width = width};
}

template <typename Box>
ContentBox<Box>::ContentBox(QWidget* parent) : Box(parent) {
    Box::setContentsMargins(
        metrics::narrowPageMargin, metrics::pageTop, metrics::narrowPageMargin, metrics::pageBottom);
}

/// What the page leaves for the box, with the narrow margins that are its own.
template <typename Box>
int ContentBox<Box>::boxWidth(int pageWidth) const {
    const int needed = Box::minimumSize().width() - 2 * metrics::narrowPageMargin;
    return contentSpan(pageWidth, needed).width + 2 * metrics::narrowPageMargin;
}

template <typename Box>
void ContentBox<Box>::setGeometry(const QRect& page) {
    const int width = boxWidth(page.width());
    Box::setGeometry({page.left() + (page.width() - width) / 2, page.top(), width, page.height()});
}

template <typename Box>
int ContentBox<Box>::heightForWidth(int width) const {
    return Box::heightForWidth(boxWidth(width));
}

template <typename Box>
int ContentBox<Box>::minimumHeightForWidth(int width) const {
    return Box::minimumHeightForWidth(boxWidth(width));
}

template class ContentBox<QVBoxLayout>;
template class ContentBox<QHBoxLayout>;

} // namespace quorvi
