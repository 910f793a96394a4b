// A text after the sign for the running profile.
#pragma once

#include "widgets/WrappedLabel.h"

namespace quorvi {

/// The sign is before the first line of the text.
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
