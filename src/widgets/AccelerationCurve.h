// Shows the acceleration: the pointer's speed against the hand's, next to the line without acceleration, and
// where the factor holds. Read-only.
#pragma once

#include <QWidget>

#include "model/PointerSpeed.h"

namespace quorvi {

class AccelerationCurve : public QWidget {
    Q_OBJECT
    /// The labels of the two axes.
    Q_PROPERTY(QString handLabel READ handLabel WRITE setHandLabel)
    Q_PROPERTY(QString pointerLabel READ pointerLabel WRITE setPointerLabel)
    /// The label at the curve's end, with "^1" for the factor in percent.
    Q_PROPERTY(QString nowLabel READ nowLabel WRITE setNowLabel)

  public:
    explicit AccelerationCurve(QWidget* parent = nullptr);

    /// 0.1 to 2.0; anything else, including NaN, shows as the neutral 1.
    void setFactor(float factor);
    [[nodiscard]] float factor() const { return m_factor; }

    [[nodiscard]] const QString& handLabel() const { return m_handLabel; }
    void setHandLabel(const QString& label);
    [[nodiscard]] const QString& pointerLabel() const { return m_pointerLabel; }
    void setPointerLabel(const QString& label);

    [[nodiscard]] const QString& nowLabel() const { return m_nowLabel; }
    void setNowLabel(const QString& label);
    /// That label with the shown factor.
    [[nodiscard]] QString nowText() const;

    /// The area of the curve, in widget coordinates: the lower left is standing still, the right edge the
    /// fastest hand, the top twice its speed.
    [[nodiscard]] QRectF plot() const;

    /// The point of the factor's curve for that hand speed, 0 to 1, in view coordinates.
    [[nodiscard]] QPointF pointAt(double handSpeed, double factor) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintGrid(QPainter& painter, const QRectF& area) const;
    void paintCurve(QPainter& painter) const;
    void paintNow(QPainter& painter, const QRectF& area) const;
    void paintAxes(QPainter& painter, const QRectF& area) const;

    float m_factor = 1.0F;
    QString m_handLabel;
    QString m_pointerLabel;
    QString m_nowLabel;
};

} // namespace quorvi
