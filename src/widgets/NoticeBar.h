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
    std::function<void()> offer = {}; ///< the action of a second button; empty for no second button
    QString offerTitle = {};          ///< the title of that button; empty for the bar's own title
    std::function<void()> ended =
        {}; ///< called when the notice is removed for any reason, but not when it is replaced
};

/// Visible while there is a notice that the user has not dismissed; the panel stays usable. The bar is at the
/// top of the page, below the tabs, as wide as the page's content. The page makes room for it if it can; a
/// page that scrolls always can. Otherwise, on a small screen, the bar covers the page, but not the tabs.
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

    /// The window contains the page and owns the bar. In a stack of pages, the bar is on the visible one.
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
    QPointer<QWidget> m_roomy; ///< the page that has made room, if any
    SignView* m_sign;
    QLabel* m_text;
    QPushButton* m_offer;
    QPushButton* m_button;
};

} // namespace quorvi
