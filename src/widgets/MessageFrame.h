// The background of a message, in the window or on a page.
#pragma once

#include <QWidget>

namespace quorvi {

/// Frames and tints the widget in the mark colour.
void paintMessageGround(QWidget& widget);

/// A container with that background.
class MessageFrame : public QWidget {
    Q_OBJECT

  public:
    explicit MessageFrame(QWidget* parent = nullptr) : QWidget(parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
