#include "widgets/HeadingRow.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>

#include "widgets/LineLabel.h"
#include "widgets/Metrics.h"

namespace quorvi {

namespace {

constexpr int kLeastLetters = 6; // of a heading that is cut

} // namespace

HeadingRow::HeadingRow(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

LineLabel& HeadingRow::heading() const {
    return *findChildren<LineLabel*>().at(0);
}

LineLabel& HeadingRow::count() const {
    return *findChildren<LineLabel*>().at(1);
}

QSize HeadingRow::around(int headingWidth, int countWidth) const {
    return {headingWidth + metrics::rowGap + countWidth,
        std::max(heading().sizeHint().height(), count().sizeHint().height())};
}

QSize HeadingRow::sizeHint() const {
    return around(heading().sizeHint().width(), count().sizeHint().width());
}

QSize HeadingRow::minimumSizeHint() const {
    return around(kLeastLetters * heading().fontMetrics().averageCharWidth(), count().leastWidth());
}

void HeadingRow::place() {
    const int beside = width() - metrics::rowGap - heading().sizeHint().width();
    const int countWidth = std::clamp(beside, count().leastWidth(), count().sizeHint().width());
    const int headingWidth = std::min(heading().sizeHint().width(), width() - metrics::rowGap - countWidth);
    const auto placed = [this](int left, int width) {
        return QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, width, height()));
    };
    heading().setGeometry(placed(0, headingWidth));
    count().setGeometry(placed(headingWidth + metrics::rowGap, countWidth));
}

bool HeadingRow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::LayoutRequest: // a label has another text
        updateGeometry();
        [[fallthrough]];
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::LayoutDirectionChange:
        place();
        break;
    default:
        break;
    }
    return handled;
}

} // namespace quorvi
