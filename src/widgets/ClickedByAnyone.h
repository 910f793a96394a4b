// Checkable buttons that also emit clicked() for assistive programs.
#pragma once

#include <QScopedValueRollback>

namespace quorvi {

/// An assistive program that clicks one of Qt's checkable buttons toggles it without clicked(). This one
/// emits clicked() then too. The program itself must use this class's setChecked(), which emits only
/// toggled(), as usual.
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
    bool m_isExplained = false; ///< clicked() follows, or it was not a click
};

} // namespace quorvi
