// A bar across the foot of a window that tells the user something without asking for an answer.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace quorvi {

/// Hidden until there is something to tell, and again after its one button; the panel can be used meanwhile.
/// It lies over what is there and takes no room of its own, which would make the window higher than a small
/// screen, and it leaves the tabs free.
class NoticeBar : public QFrame {
  public:
    NoticeBar(const QString& buttonTitle, QWidget& window);

    /// Shows the text, in place of an earlier one, and has screen readers say it. It is plain text, which the
    /// user can select and copy.
    void tell(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();

    QLabel* m_text;
    QPushButton* m_button;
};

} // namespace quorvi
