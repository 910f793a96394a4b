// A label that says what goes on, on a ground of the theme's highlight: nothing else around it has that
// colour. Without a text neither the eye nor the pointer finds it, so that it can stand on another label.
#pragma once

#include <QLabel>

namespace quorvi {

class StateLabel : public QLabel {
    Q_OBJECT

  public:
    explicit StateLabel(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
