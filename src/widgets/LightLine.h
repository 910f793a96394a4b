// A line that separates what is below it from what is above, and says no more.
#pragma once

#include <QWidget>

namespace quorvi {

class LightLine : public QWidget {
    Q_OBJECT

  public:
    explicit LightLine(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
