// A heading with a count behind it.
#pragma once

#include <QWidget>

namespace quorvi {

class LineLabel;

/// Its two children are line labels: the heading and the count. If the room is short, the count takes a
/// shorter form first; then the heading is cut.
class HeadingRow : public QWidget {
    Q_OBJECT

  public:
    explicit HeadingRow(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    /// With the count's shortest form and some letters of the heading.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;

  private:
    [[nodiscard]] LineLabel& heading() const;
    [[nodiscard]] LineLabel& count() const;
    [[nodiscard]] QSize around(int headingWidth, int countWidth) const;
    void place();
};

} // namespace quorvi
