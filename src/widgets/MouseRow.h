// One mouse of the list of mice.
#pragma once

#include <QWidget>

#include "widgets/MiceList.h"

class QLabel;
class QPushButton;

namespace quorvi {

class CheckBox;

class MouseRow : public QWidget {
    Q_OBJECT

  public:
    struct Texts {
        QString boxDescription;
        QString setUp, setUpName, setUpDescription, setUpHindrance; ///< see MiceList
    };

    /// The number, from 1, distinguishes its controls from those of other rows.
    MouseRow(const QString& id, int number, Texts texts);

    [[nodiscard]] const QString& id() const { return m_id; }
    [[nodiscard]] CheckBox* box() const { return m_box; }
    [[nodiscard]] QPushButton* button() const { return m_button; }
    void setLine(const MouseLine& line);

  signals:
    void useChosen(bool inUse);
    void setUpChosen();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fitName();

    QString m_id;
    QString m_name;
    Texts m_texts;
    CheckBox* m_box; // its setChecked() does not count as a click, unlike the inherited one
    QPushButton* m_button;
    QLabel* m_detail;
};

} // namespace quorvi
