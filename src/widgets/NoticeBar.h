// A bar across the foot of a window that tells the user something without asking for an answer.
#pragma once

#include <QFrame>

#include <functional>
#include <map>

class QLabel;
class QPushButton;

namespace quorvi {

class NoticeIcon;

/// What the sign beside a notice says.
enum class NoticeSign : std::uint8_t { information, warning };

struct TextOfNotice {
    QString text; ///< plain; the user can select and copy it
    NoticeSign sign = NoticeSign::information;
    std::function<void()> offer = {}; ///< what a second button does; without one, there is no such button
};

/// Hidden until there is something to tell, and again after its button; the panel can be used meanwhile. What
/// is above it makes room where that is possible. Where it is not, on a small screen, the bar lies over it,
/// and leaves the tabs free.
///
/// Several things can be told at a time, each under a number of its own. The one with the lowest number is
/// shown; the button takes it away and shows the next. So does the button of what it offers.
class NoticeBar : public QFrame {
  public:
    /// In the user's language.
    struct Titles {
        QString dismiss;
        QString offer;
    };

    NoticeBar(const Titles& titles, QWidget& window);

    /// Tells the text, in place of an earlier one of the same number, and has screen readers say it as soon
    /// as it is shown. Telling again what is shown already changes nothing, and nothing is said twice.
    void tell(int number, const TextOfNotice& notice);

    /// Takes the text of the number away, because it is no longer so. Does nothing when there is none.
    void withdraw(int number);
    /// Takes all texts away that offer something.
    void withdrawOffers();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void update();
    void place();
    void makeRoom(int height);
    void takeOffer();

    std::map<int, TextOfNotice> m_notices;
    TextOfNotice m_shown;   ///< without a text while the bar is hidden
    int m_usualMargin = -1; ///< below what is in the window, while room is made; -1 else
    NoticeIcon* m_icon;
    QLabel* m_text;
    QPushButton* m_offer;
    QPushButton* m_button;
};

} // namespace quorvi
