// Acceleration at one glance: the speed of the pointer against the speed of the hand, with the line beside it
// that no acceleration gives. It only shows.
#pragma once

#include <QWidget>

#include "model/PointerSpeed.h"

namespace quorvi {

class AccelerationCurve : public QWidget {
    Q_OBJECT
    /// What stands along the two axes.
    Q_PROPERTY(QString handLabel READ handLabel WRITE setHandLabel)
    Q_PROPERTY(QString pointerLabel READ pointerLabel WRITE setPointerLabel)

  public:
    explicit AccelerationCurve(QWidget* parent = nullptr);

    /// 0.1 to 2.0; anything else, and what is no number, shows as the neutral 1.
    void setFactor(float factor);
    [[nodiscard]] float factor() const { return m_factor; }

    [[nodiscard]] const QString& handLabel() const { return m_handLabel; }
    void setHandLabel(const QString& label);
    [[nodiscard]] const QString& pointerLabel() const { return m_pointerLabel; }
    void setPointerLabel(const QString& label);

    /// Where the curve is drawn, in the widget's coordinates: from standing still at the lower left to the
    /// fastest hand at the right and twice its speed at the top.
    [[nodiscard]] QRectF plot() const;

    /// Where the curve of the factor is at that speed of the hand, 0 to 1, in the view's coordinates.
    [[nodiscard]] QPointF pointAt(double handSpeed, double factor) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    float m_factor = 1.0F;
    QString m_handLabel;
    QString m_pointerLabel;
};

} // namespace quorvi
