// The drawing of the mouse on the device tab: how its lights are set. It follows the palette and is never
// mirrored: it is the picture of a thing.
#pragma once

#include <QWidget>

namespace quorvi {

class MouseLights : public QWidget {
    Q_OBJECT

  public:
    explicit MouseLights(QWidget* parent = nullptr);

    /// Which of the mouse's lights are drawn as lit. None is while the view is disabled.
    void setLights(bool wheel, bool battery);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool m_wheelIsLit = false;
    bool m_batteryIsLit = false;
};

} // namespace quorvi
