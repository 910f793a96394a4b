// What the helper tells while the panel is shown, and where the window shows it.
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

/// Nothing here waits for the helper. One that does not know the interfaces has nothing of it shown.
class LiveHelper final : public QObject, HelperNewsListener {
    Q_OBJECT

  public:
    /// What it is given of the panel, which must outlive it; the view itself may go before.
    struct Panel {
        QWidget& view;
        Ui::KyvarQuorviPane& views;
        QDialog& setUpPanel;
        Ui::SetUpPanel& setUpViews;
        PanelText text;
        /// The name of the profile of that number, from 1, as it is shown; empty when there is none.
        std::function<QString(std::uint32_t number)> profileName;
        /// Runs a sheet on the panel's window until it is closed. The panel may not outlive it.
        std::function<void(QDialog& sheet)> runSheet;
    };

    explicit LiveHelper(Panel panel);
    ~LiveHelper() override;
    LiveHelper(const LiveHelper&) = delete;
    LiveHelper& operator=(const LiveHelper&) = delete;

    /// Follows that helper from now on, nobody for {0, 0}. Does nothing for the one that is followed already.
    void follow(const EventBus& bus, const ProcessSerialNumber& helper);
    void stop();

    [[nodiscard]] const HelperNews& state() const;
    /// What stands beside the title while a mouse is there.
    [[nodiscard]] QString connectionText() const;
    /// Which profile runs and why; empty when that is not known.
    [[nodiscard]] QString runningText() const;
    /// Shows what the helper has told, with the names that profiles have now.
    void show();

  signals:
    /// The helper has told something else than before, and it is shown.
    void changed();
    /// The mouse runs another profile or stage than before.
    void runningChanged();
    /// What the user has chosen was not done; the text says so in their language.
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
    ProcessSerialNumber m_helper; ///< {0, 0} for nobody
    std::unique_ptr<HelperFollower> m_follower;
    std::unique_ptr<MouseSetUp> m_setUp;               ///< while its sheet is open
    std::pair<std::uint32_t, std::uint32_t> m_running; ///< profile and stage, as they were told of last
    bool m_showScheduled = false;
};

} // namespace quorvi
