// A label for a state, on the theme's highlight colour, which nothing around it has, or on amber for a
// warning. Without a text it is invisible to the eye and the pointer, so it can cover other controls.
#pragma once

#include <QLabel>

namespace quorvi {

class StateLabel : public QLabel {
    Q_OBJECT

  public:
    explicit StateLabel(QWidget* parent = nullptr);

    /// Whether the state needs attention.
    [[nodiscard]] bool isWarning() const { return m_warns; }
    void setWarning(bool warns);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintGround(const QColor& colour);
    void paintWarning();

    bool m_warns = false;
};

} // namespace quorvi
