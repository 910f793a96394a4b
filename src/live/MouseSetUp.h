// The sheet in which the user assigns a mouse's buttons to inputs, and enters its sensor's DPI.
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

/// One set-up, from opening to closing the sheet. During it the mouse is a plain one: its buttons have their
/// normal effect, and the helper reports them. Nothing is stored before "Done". If the mouse is unplugged,
/// the sheet waits for it.
class MouseSetUp final : public QObject {
    Q_OBJECT

  public:
    struct Sheet {
        QDialog& panel;
        Ui::SetUpPanel& views;
        PanelText text;
    };

    /// Fills the sheet for that mouse. Without a follower, waits for one.
    MouseSetUp(Sheet sheet, const ListedHelperMouse& mouse);
    /// Makes the mouse follow its profiles again.
    ~MouseSetUp() override;

    /// Sets the connection to the helper; null for none. Call it with null before the follower is destroyed.
    void setFollower(HelperFollower* follower);
    /// Call this when the helper has reported a change.
    void helperChanged();
    /// Call this when a mouse button, or the watched key, was pressed or released.
    void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed);

  protected:
    /// Receives the keys that no control of the sheet uses.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] const ListedHelperMouse* listed() const;
    [[nodiscard]] bool isThere() const;
    [[nodiscard]] QString hindrance() const;
    /// An answer handler that runs later, unless the helper has changed by then.
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
    QPointer<QDialog> m_isOpen;      ///< null if the window is gone, and the sheet with it
    const ListedHelperMouse m_mouse; ///< as at the beginning
    SetUpSteps m_steps;
    HelperFollower* m_follower = nullptr;
    int m_followers = 0;     ///< the number of followers so far, to detect late answers
    bool m_hasBegun = false; ///< the helper was told to begin, and has not refused
    bool m_isTaken = false;  ///< another program is setting up a mouse
    int m_unanswered = 0;    ///< of the values to save
    bool m_hasFailed = false;
};

} // namespace quorvi
