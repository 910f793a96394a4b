// The frame that shows which list has the focus.
#pragma once

#include <QWidget>

namespace quorvi {

/// A frame around its parent, above all that is in it, while it is visible. The pointer does not meet it.
class FocusRing : public QWidget {
  public:
    explicit FocusRing(QWidget& parent);

    /// Follows the parent's size.
    void fit();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
