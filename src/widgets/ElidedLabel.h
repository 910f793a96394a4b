// A line that grows at its end: when it is too long, its beginning is left out.
#pragma once

#include <QLabel>

namespace quorvi {

/// As wide as it is given, whatever its text is; a plain text in one line.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) {}

    [[nodiscard]] QSize sizeHint() const override { return {0, fontMetrics().height()}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
