// The text of a question: its first line is the heading of the rest.
#pragma once

#include <QLabel>

namespace quorvi {

/// A plain, wrapped text. The blank lines after the first line are drawn as a gap; text() and screen readers
/// use the whole text.
class QuestionText : public QLabel {
    Q_OBJECT

  public:
    explicit QuestionText(QWidget* parent = nullptr);

    [[nodiscard]] QString heading() const;
    /// The text after the heading; empty for a question of one line.
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
