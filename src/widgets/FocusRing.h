// The frame that shows which list has the focus.
#pragma once

#include <QWidget>

namespace quorvi {

/// A frame around its parent, above the parent's children. It ignores the pointer.
class FocusRing : public QWidget {
  public:
    explicit FocusRing(QWidget& parent);

    /// Adopts the parent's size. Call this when that changes.
    void fit();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quorvi
