// Buttons that hold a state, clicked by whoever clicks them.
#pragma once

#include <QScopedValueRollback>

namespace quorvi {

/// An assistive program that clicks a checkable button of Qt's toggles it without clicked() being emitted.
/// This one emits it then as well. setChecked() of this class is the program's own and emits only toggled(),
/// as ever.
template <typename Button>
class ClickedByAnyone : public Button {
  public:
    explicit ClickedByAnyone(QWidget* parent = nullptr) : Button(parent) {
        Button::connect(this, &Button::toggled, this, [this](bool on) {
            if (!m_isExplained)
                emit this->clicked(on);
        });
    }

    void setChecked(bool on) {
        const QScopedValueRollback explained(m_isExplained, true);
        Button::setChecked(on);
    }

  protected:
    void nextCheckState() override {
        const QScopedValueRollback explained(m_isExplained, true);
        Button::nextCheckState();
    }

  private:
    bool m_isExplained = false; ///< clicked() follows, or nobody clicked
};

} // namespace quorvi
