// The drawing of the mouse on the device tab: the state of its lights. It follows the palette and is never
// mirrored, because it shows a real object.
#pragma once

#include <QWidget>

#include "widgets/MousePicture.h"

namespace quorvi {

class MouseLights : public QWidget {
    Q_OBJECT

  public:
    explicit MouseLights(QWidget* parent = nullptr);

    /// Sets which lights are drawn as lit. While the view is disabled, none is.
    void setLights(bool wheel, bool battery);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    MousePicture m_picture;
    bool m_wheelIsLit = false;
    bool m_batteryIsLit = false;
};

} // namespace quorvi
