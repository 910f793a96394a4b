// A line above the tabs that tells the user something without asking for an answer.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace quorvi {

/// Hidden until there is something to tell, and again after its one button; the panel can be used meanwhile.
class NoticeBar : public QFrame {
  public:
    explicit NoticeBar(const QString& buttonTitle, QWidget* parent = nullptr);

    /// Shows the text, in place of an earlier one, and has screen readers say it. It is plain text, which the
    /// user can select and copy.
    void tell(const QString& text);

  private:
    QLabel* m_text;
    QPushButton* m_button;
};

} // namespace quorvi
