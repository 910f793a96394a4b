// One mouse of the list of mice.
#pragma once

#include <QWidget>

#include "platform/widgets/MiceList.h"

class QLabel;

namespace quorvi {

class CheckBox;

class MouseRow : public QWidget {
    Q_OBJECT

  public:
    /// The number, from 1, tells its controls from those of other rows.
    MouseRow(const QString& id, int number, const QString& boxDescription);

    [[nodiscard]] const QString& id() const { return m_id; }
    [[nodiscard]] CheckBox* box() const { return m_box; }
    void setLine(const MouseLine& line);

  signals:
    void useChosen(bool inUse);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fitName();

    QString m_id;
    QString m_name;
    QString m_boxDescription;
    CheckBox* m_box; // its setChecked() counts as nobody's click, unlike that of the class it inherits
    QLabel* m_detail;
};

} // namespace quorvi
