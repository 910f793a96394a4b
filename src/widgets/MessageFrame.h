// The ground of a message, in the window or within a page.
#pragma once

#include <QWidget>

namespace quorvi {

/// Frames the widget in the colour of marks and tints it with that.
void paintMessageGround(QWidget& widget);

/// What is in it is a message.
class MessageFrame : public QWidget {
    Q_OBJECT

  public:
    explicit MessageFrame(QWidget* parent = nullptr) : QWidget(parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
