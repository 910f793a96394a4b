#include "resources/Gaps.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QVariant>

#include <algorithm>
#include <array>

#include "widgets/ContentColumn.h"
#include "widgets/Metrics.h"

namespace quorvi {

namespace {

struct Gap {
    const char* role;
    int size;
};

constexpr std::array kGaps{
    Gap{"none", 0},
    Gap{"field", metrics::fieldGap},
    Gap{"row", metrics::rowGap},
    Gap{"group", metrics::groupGap},
    Gap{"column", metrics::columnGap},
    Gap{"section", metrics::sectionGap},
    Gap{"head", metrics::fieldGap},
    Gap{"sheet", metrics::rowGap},
    Gap{"message", metrics::rowGap},
};

bool isPage(QLayout& layout) {
    return dynamic_cast<ContentColumn*>(&layout) || dynamic_cast<ContentRow*>(&layout);
}

void setSpacing(QLayout& layout, int gap) {
    const int rows = std::min(gap, metrics::rowGap);
    if (auto* grid = qobject_cast<QGridLayout*>(&layout)) {
        grid->setHorizontalSpacing(gap);
        grid->setVerticalSpacing(rows);
    } else if (auto* form = qobject_cast<QFormLayout*>(&layout)) {
        form->setHorizontalSpacing(gap);
        form->setVerticalSpacing(rows);
    } else {
        layout.setSpacing(gap);
    }
}

} // namespace

void setGaps(QLayout& layout) {
    const QByteArray role = layout.property("gaps").toByteArray();
    const auto* gap = std::ranges::find_if(kGaps, [&](const Gap& known) { return role == known.role; });
    if (gap == kGaps.end())
        return;
    setSpacing(layout, gap->size);
    if (role == "head")
        layout.setContentsMargins(
            metrics::headLeft, metrics::headTop, metrics::headLeft, metrics::headBottom);
    else if (role == "sheet")
        layout.setContentsMargins(
            metrics::pageMargin, metrics::pageMargin, metrics::pageMargin, metrics::pageMargin);
    else if (role == "message")
        layout.setContentsMargins(metrics::groupGap, metrics::fieldGap, metrics::groupGap, metrics::fieldGap);
    else if (!isPage(layout))
        layout.setContentsMargins(0, 0, 0, 0);
}

} // namespace quorvi
