// The text of a question: its first line is the heading of what follows.
#pragma once

#include <QLabel>

namespace quorvi {

/// A plain text, wrapped. The blank lines after the first are a gap; text() and screen readers have it whole.
class QuestionText : public QLabel {
    Q_OBJECT

  public:
    explicit QuestionText(QWidget* parent = nullptr);

    [[nodiscard]] QString heading() const;
    /// What follows the heading; empty for a question of one line.
    [[nodiscard]] QString rest() const;

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont headingFont() const;
    [[nodiscard]] int headingHeight(int width) const;
};

} // namespace quorvi
