// A check box that counts as clicked whoever clicks it.
#pragma once

#include <QCheckBox>

namespace quorvi {

/// An assistive program that clicks a check box of Qt's toggles it without clicked() being emitted. This one
/// emits it then as well. setChecked() of this class is the program's own and emits only toggled(), as ever.
class CheckBox : public QCheckBox {
    Q_OBJECT

  public:
    explicit CheckBox(QWidget* parent = nullptr);

    void setChecked(bool on);

  protected:
    void nextCheckState() override;

  private:
    bool m_isExplained = false; ///< clicked() follows, or nobody clicked
};

} // namespace quorvi
