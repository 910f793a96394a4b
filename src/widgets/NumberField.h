// A number that is typed beside a slider.
#pragma once

#include <QPointer>
#include <QSpinBox>

#include <functional>

namespace quorvi {

class KyvarQuorviSlider;

/// Slider and field are one control: what is typed or chosen by an arrow moves the slider as a user does, by
/// its whole steps, and the field shows where it stands. Nothing is chosen while a number is being typed, and
/// the wheel turns the number only while the field has the focus.
class NumberField : public QSpinBox {
    Q_OBJECT
    /// The number with what stands around it: "%d DPI".
    Q_PROPERTY(QString format READ format WRITE setFormat)

  public:
    /// What the field calls the slider's values, where that is not the values themselves.
    struct Scale {
        std::function<int(int)> numberOfValue;
        std::function<int(int)> valueOfNumber; ///< the slider's nearest
    };

    explicit NumberField(QWidget* parent = nullptr);

    /// The slider must live as long as the field is used. The field takes its range, and is enabled with it.
    void join(KyvarQuorviSlider& slider, Scale scale = {});

    [[nodiscard]] QString format() const;
    /// A format without "%d" shows the number alone.
    void setFormat(const QString& format);

    /// Moves the slider by that many of its steps.
    void stepBy(int steps) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// Digits of any script count.
    QValidator::State validate(QString& input, int& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void choose(int number);
    void showSlider();

    QPointer<KyvarQuorviSlider> m_slider;
    Scale m_scale;
};

} // namespace quorvi
