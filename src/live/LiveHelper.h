// Shows the helper's reports in the window while the panel is visible.
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <utility>

#include "events/HelperFollower.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

namespace quorvi {

class MouseSetUp;

/// Never waits for the helper. For a helper without these interfaces, shows nothing.
class LiveHelper final : public QObject, HelperNewsListener {
    Q_OBJECT

  public:
    /// The parts of the panel that it uses, which must outlive it, except the view.
    struct Panel {
        QWidget& view;
        Ui::KyvarQuorviPane& views;
        QDialog& setUpPanel;
        Ui::SetUpPanel& setUpViews;
        PanelText text;
        /// Returns the displayed name of the profile with that number, from 1; empty if there is none.
        std::function<QString(std::uint32_t number)> profileName;
        /// Runs a sheet on the panel's window until it is closed. The panel may be destroyed meanwhile.
        std::function<void(QDialog& sheet)> runSheet;
    };

    explicit LiveHelper(Panel panel);
    ~LiveHelper() override;
    LiveHelper(const LiveHelper&) = delete;
    LiveHelper& operator=(const LiveHelper&) = delete;

    /// Follows that helper from now on, none for {0, 0}. Does nothing if it is already followed.
    void follow(const EventBus& bus, const ProcessSerialNumber& helper);
    void stop();

    [[nodiscard]] const HelperNews& state() const;
    /// The text below the title while a mouse is connected.
    [[nodiscard]] QString connectionText() const;
    /// The running profile and the reason; empty if unknown.
    [[nodiscard]] QString runningText() const;
    /// Shows the helper's last report, with the present names of profiles.
    void show();

  signals:
    /// The helper has reported a change, and it is shown.
    void changed();
    /// The mouse's running profile or stage has changed.
    void runningChanged();
    /// A choice of the user's failed; the text says so in their language.
    void failed(const QString& text);

  private:
    [[nodiscard]] QString runningProfile() const;
    void forgetFollower();
    void useMouse(const QString& id, bool inUse);
    void tellThatUseFailed();
    void setUpMouse(const QString& id);
    void helperStateChanged() override;
    void helperInputChanged(const std::string& mouse, int input, bool pressed) override;
    void helperCodeChanged(const std::string& mouse, std::uint16_t code, bool pressed) override;

    Panel m_panel;
    QPointer<QWidget> m_view;
    ProcessSerialNumber m_helper; ///< {0, 0} for none
    std::unique_ptr<HelperFollower> m_follower;
    std::unique_ptr<MouseSetUp> m_setUp;               ///< while its sheet is open
    std::pair<std::uint32_t, std::uint32_t> m_running; ///< the last reported profile and stage
    bool m_showScheduled = false;
};

} // namespace quorvi
