// A text behind the sign of what runs now.
#pragma once

#include "widgets/WrappedLabel.h"

namespace quorvi {

/// The sign stands beside the first line of the text, where the line begins.
class SignedLabel : public WrappedLabel {
    Q_OBJECT

  public:
    explicit SignedLabel(QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void keepRoom();
};

} // namespace quorvi
