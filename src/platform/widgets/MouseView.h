// The drawing of the mouse on the buttons tab, with the number of each input on it. It follows the palette.
#pragma once

#include <QWidget>

namespace quorvi {

class MouseView : public QWidget {
    Q_OBJECT

  public:
    explicit MouseView(QWidget* parent = nullptr);

    /// Marks the input with the number 1 to 9; any other number marks none.
    void setMarkedInput(int input);
    [[nodiscard]] int markedInput() const { return m_marked; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int m_marked = 0;
};

} // namespace quorvi
