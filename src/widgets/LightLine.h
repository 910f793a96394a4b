// A decorative line that separates the content below from the content above.
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
