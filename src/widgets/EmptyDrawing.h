// The drawing above "there are no macros yet".
#pragma once

#include <QWidget>

namespace quorvi {

/// Three keys with the bars of their presses in time, of the size that every such drawing has.
class EmptyDrawing : public QWidget {
    Q_OBJECT

  public:
    explicit EmptyDrawing(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
