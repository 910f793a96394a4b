// A field for the number of a slider.
#pragma once

#include <QPointer>
#include <QSpinBox>

#include <functional>

namespace quorvi {

class KyvarQuorviSlider;

/// Slider and field are one control: a typed number or an arrow moves the slider as a user does, by whole
/// steps, and the field shows the slider's value. A number takes effect only when its typing is finished. The
/// wheel changes the number only while the field has the focus.
class NumberField : public QSpinBox {
    Q_OBJECT
    /// The number with the text around it: "%d DPI".
    Q_PROPERTY(QString format READ format WRITE setFormat)

  public:
    /// Converts the slider's values to the field's numbers, if they differ.
    struct Scale {
        std::function<int(int)> numberOfValue;
        std::function<int(int)> valueOfNumber; ///< the slider's nearest
    };

    explicit NumberField(QWidget* parent = nullptr);

    /// The slider must outlive the field's use. The field adopts its range and enabled state.
    void join(KyvarQuorviSlider& slider, Scale scale = {});

    [[nodiscard]] QString format() const;
    /// A format without "%d" shows the number alone.
    void setFormat(const QString& format);

    /// Moves the slider by that many of its steps.
    void stepBy(int steps) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// Accepts digits of any script.
    QValidator::State validate(QString& input, int& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void choose(int number);
    void showSlider();
    void chooseDirection();

    QPointer<KyvarQuorviSlider> m_slider;
    Scale m_scale;
};

} // namespace quorvi
