// A bar across the foot of a window that tells the user something without asking for an answer.
#pragma once

#include <QFrame>

#include <map>

class QLabel;
class QPushButton;

namespace quorvi {

class NoticeIcon;

/// What the sign beside a notice says.
enum class NoticeSign : std::uint8_t { information, warning };

/// Hidden until there is something to tell, and again after its one button; the panel can be used meanwhile.
/// It lies over what is there and takes no room of its own, which would make the window higher than a small
/// screen, and it leaves the tabs free.
///
/// Several things can be told at a time, each under a number of its own. The one with the lowest number is
/// shown; the button takes it away and shows the next.
class NoticeBar : public QFrame {
  public:
    NoticeBar(const QString& buttonTitle, QWidget& window);

    /// Tells the text, in place of an earlier one of the same number, and has screen readers say it as soon
    /// as it is shown. It is plain text, which the user can select and copy. Telling again what is shown
    /// already changes nothing, and nothing is said twice.
    void tell(int number, const QString& text, NoticeSign sign);

    /// Takes the text of the number away, because it is no longer so. Does nothing when there is none.
    void withdraw(int number);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Notice {
        QString text;
        NoticeSign sign;
        bool operator==(const Notice&) const = default;
    };

    void update();
    void place();

    std::map<int, Notice> m_notices;
    Notice m_shown{}; ///< without a text while the bar is hidden
    NoticeIcon* m_icon;
    QLabel* m_text;
    QPushButton* m_button;
};

} // namespace quorvi
