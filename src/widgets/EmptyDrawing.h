// The drawing above "there are no macros yet".
#pragma once

#include <QWidget>

namespace quorvi {

/// Three keys with bars that show when each is pressed. All drawings of empty states have this size.
class EmptyDrawing : public QWidget {
    Q_OBJECT

  public:
    explicit EmptyDrawing(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
