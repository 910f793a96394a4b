// A line of growing text. If the text is too long, its beginning is left out.
#pragma once

#include <QLabel>

namespace quorvi {

/// A plain text in one line. A longer text asks for no more room than some letters need.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) {}

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
