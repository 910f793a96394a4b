// A bar above a page of a window that informs the user and needs no answer.
#pragma once

#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <map>

class QLabel;
class QPushButton;

namespace quorvi {

class SignView;

/// The meaning of the sign next to a notice.
enum class NoticeSign : std::uint8_t { information, warning };

struct TextOfNotice {
    QString text; ///< plain; the user can select and copy it
    NoticeSign sign = NoticeSign::information;
    std::function<void()> offer = {}; ///< what a second button does; without one, there is no such button
    QString offerTitle = {};          ///< what that button is called; the bar's own title when empty
    std::function<void()> ended =
        {}; ///< called when it was taken away, by whomever; not when it was replaced
};

/// Hidden until there is something to tell, and again after its button; the panel can be used meanwhile. It
/// stands at the top of what is below the tabs, as wide as the content there. The page makes room where that
/// is possible, and one that scrolls always can. Where it is not, on a small screen, the bar lies over it,
/// and leaves the tabs free.
///
/// There can be several notices, each with its own number. The one with the lowest number is shown. The
/// button removes it and shows the next; so does the button of its offer.
class NoticeBar : public QWidget {
  public:
    /// Texts in the user's language.
    struct Titles {
        QString dismiss; ///< for screen readers: the button shows only a sign
        QString dismissTip;
        QString offer;
    };

    /// The window holds the page, and the bar, which it gives the page's top. Of a stack of pages it is the
    /// one that is seen.
    NoticeBar(const Titles& titles, QWidget& window, QWidget& page);

    /// The Tab key moves from that widget to the bar's buttons while they are visible.
    void followInTabOrder(QWidget& widget);

    /// Sets the number's text, replacing an earlier one. Screen readers announce it when it is shown. Setting
    /// the shown text again changes nothing and is not announced again.
    void tell(int number, const TextOfNotice& notice);

    /// Removes the number's text, because it no longer applies. Does nothing if there is none.
    void withdraw(int number);
    /// Removes all texts with an offer.
    void withdrawOffers();

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    using Notices = std::map<int, TextOfNotice>;

    void endThose(const std::function<bool(const Notices::value_type&)>& chosen);
    void showFirst();
    void place();
    void makeRoom(int height);
    [[nodiscard]] QWidget& shownPage() const;
    void takeOffer();

    QString m_usualOffer;
    Notices m_notices;
    TextOfNotice m_shown; ///< without a text while the bar is hidden
    QWidget& m_page;
    QPointer<QWidget> m_roomy; ///< the page that has made room
    SignView* m_sign;
    QLabel* m_text;
    QPushButton* m_offer;
    QPushButton* m_button;
};

} // namespace quorvi
