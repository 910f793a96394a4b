// The sheet in which the user says which button of a mouse is which input, and how many DPI its sensor has.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>

#include <functional>
#include <optional>
#include <string>

#include "events/HelperFollower.h"
#include "live/SetUpSteps.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

class QKeyEvent;

namespace quorvi {

/// One set-up, from the sheet's opening to its end. The mouse is a plain one meanwhile: its buttons do what
/// they always do, and are told by the helper. Nothing is kept before "Done". A mouse that goes away is
/// waited for.
class MouseSetUp final : public QObject {
    Q_OBJECT

  public:
    struct Sheet {
        QDialog& panel;
        Ui::SetUpPanel& views;
        PanelText text;
    };

    /// Fills the sheet for that mouse. Without a follower it waits for one.
    MouseSetUp(Sheet sheet, const ListedHelperMouse& mouse);
    /// The mouse does what the profiles say again.
    ~MouseSetUp() override;

    /// By whom the helper is asked from now on; null for nobody, which has to be said before one goes away.
    void setFollower(HelperFollower* follower);
    /// The helper has told something else than before.
    void helperChanged();
    /// A button of the mouse went down or up, or a key that was waited for.
    void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed);

  protected:
    /// Sees the keys that no control of the sheet wants.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] const ListedHelperMouse* listed() const;
    [[nodiscard]] bool isThere() const;
    [[nodiscard]] QString hindrance() const;
    /// An answer that is dealt with later, unless the helper is another one by then.
    [[nodiscard]] HelperFollower::Answer later(std::function<void(const QString& error)> then);
    void begin();
    void end();
    [[nodiscard]] bool isAimed(std::uint16_t code) const;
    [[nodiscard]] bool takesKey(const QKeyEvent& key);
    void press(std::uint16_t code);
    void skip();
    void back();
    void finish();
    void saved(const QString& error);
    [[nodiscard]] std::optional<std::uint16_t> dpiInField() const;
    void show(const QString& note = {});
    void showMarks();
    void showButtons(bool ready);
    void say(const QString& question, const QString& note);

    Sheet m_sheet;
    QPointer<QDialog> m_isOpen;      ///< null when the window has gone, and the sheet with it
    const ListedHelperMouse m_mouse; ///< as it was at the beginning
    SetUpSteps m_steps;
    HelperFollower* m_follower = nullptr;
    int m_followers = 0;     ///< how many there were, to know late answers
    bool m_hasBegun = false; ///< the helper has been asked to begin, and has not refused
    bool m_isTaken = false;  ///< another program sets a mouse up
    int m_unanswered = 0;    ///< of what is to be saved
    bool m_hasFailed = false;
};

} // namespace quorvi
