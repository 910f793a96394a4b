// A stack whose pages cost no layout before there is a window.
#pragma once

#include <QStackedWidget>

#include "platform/PausedLayout.h"

namespace quorvi {

/// Fills itself without laying out the page that is shown meanwhile. The functions are not virtual: it is the
/// interface compiler that calls them as those of this class.
class StackView : public QStackedWidget {
    Q_OBJECT

  public:
    explicit StackView(QWidget* parent = nullptr) : QStackedWidget(parent) {}

    int addWidget(QWidget* page) {
        const PausedLayout paused(*page);
        return QStackedWidget::addWidget(page);
    }

    void setCurrentIndex(int index) {
        QWidget* page = widget(index);
        if (isVisible() || !page)
            return QStackedWidget::setCurrentIndex(index);
        const PausedLayout paused(*page);
        QStackedWidget::setCurrentIndex(index);
    }
};

} // namespace quorvi
