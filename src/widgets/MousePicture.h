// The drawing of the mouse as a picture, kept from one paint event to the next.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>

#include <optional>

class QPainter;
class QWidget;

namespace quorvi {

class MousePicture {
  public:
    /// Paints the mouse without its numbers over the whole view, in the view's palette. Redraws the picture
    /// only if the view's size, colours or scale or the lights have changed: material and light take longer
    /// to draw than all numbers and lines.
    void paint(QPainter& painter, const QWidget& view, bool wheelIsLit, bool batteryIsLit);

    /// How many times the picture was drawn.
    [[nodiscard]] int drawings() const { return m_drawings; }

  private:
    struct Look {
        QSize size;
        qreal scale;
        qint64 palette;
        int group;
        bool wheelIsLit;
        bool batteryIsLit;
        bool operator==(const Look&) const = default;
    };

    std::optional<Look> m_look;
    QPixmap m_picture;
    int m_drawings = 0;
};

} // namespace quorvi
