// A line of growing text. If the text is too long, its beginning is left out.
#pragma once

#include <QLabel>

namespace quorvi {

/// A plain text in one line. It asks for the room of some letters at most, and gives it up where a page is
/// narrow: what is being played must not widen the window.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) {}

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
