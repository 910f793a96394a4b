// The panel's link to the helper application: commands out, the device list in, and whether it runs at all.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "events/DeviceList.h"
#include "events/EventBus.h"
#include "events/EventTypes.h"
#include "window/EditorContext.h"

namespace quorvi {

class Bundle;
class EventBusNotifier;
class Interface;
class LiveHelper;
class LoginItemStore;
class Workspace;

class HelperLink final : public QObject {
    Q_OBJECT

  public:
    /// What it is given of the panel, which must outlive it; the view itself may go before.
    struct Panel {
        EditorContext context;
        QWidget& view;
        Interface& views;
        const Bundle& bundle; ///< the helper is in it
        EventBus* bus;        ///< null without a session bus: nothing is sent then
        Workspace& workspace;
        LoginItemStore& loginItems;
        std::function<bool()> userIsDragging; ///< the mouse is down on a slider
    };

    explicit HelperLink(Panel panel);
    ~HelperLink() override;
    HelperLink(const HelperLink&) = delete;
    HelperLink& operator=(const HelperLink&) = delete;

    /// The process of that name, letter case of A to Z aside. Nothing is stored when it does not run.
    Status findProcess(const std::string& processName, ProcessSerialNumber* psn) const;
    /// Sends the helper a message and its parameter; nothing is waited for. 0 when it was sent.
    Status sendMessage(FourCharCode message, std::int32_t param);
    /// Sends the named process a message. With a result, waits for the answer, 15 ticks (250 ms) at most, and
    /// stores its number there; the result is left as it was on any error.
    Status sendControl(
        const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result);

    /// Launches a helper that does not run, and has it start with every session from now on.
    void start();
    /// The panel is shown: lists of devices are heard from now on, and the helper's coming and going is
    /// followed.
    void open();
    /// The panel is hidden.
    void close();
    /// Looks whether the helper runs and tells the user. The bus has it called at every change; does nothing
    /// while the panel is hidden.
    void follow();
    /// Starts a helper that has gone. Does nothing while there is one, while one is about to come, and while
    /// the user drags.
    void bringBack();
    /// The same for one whose going was known in a drag of the user's that has ended now.
    void bringBackAfterDrag() {
        if (m_isGone)
            bringBack();
    }
    /// Tells the helper that the settings file has changed. One that is not there to hear it is started, and
    /// reads the file by itself.
    void tellOfSave();

    /// The user has been told that no helper runs.
    [[nodiscard]] bool isGone() const { return m_isGone; }
    /// The helper that runs now has told which mice there are, since the panel was shown.
    [[nodiscard]] bool listHasCome() const { return m_listHasCome; }
    /// Whether a list that has come is still to be shown; from now on it is not. False when the panel was
    /// hidden meanwhile.
    [[nodiscard]] bool takeList();
    /// What stands beside the title: why nothing can be edited, or what the helper tells of the mouse.
    [[nodiscard]] QString connectionText() const;
    /// What the helper tells while the panel is shown.
    [[nodiscard]] LiveHelper& live() const { return *m_live; }

  signals:
    /// A list of devices has come, and the document knows whether there is one; not told again before it is
    /// taken. Connect it queued: the event is answered first.
    void listCame();
    /// connectionText() may be another one.
    void connectionChanged();

  private:
    [[nodiscard]] std::unique_ptr<LiveHelper> makeLive();
    /// As it is shown; empty for a number that no profile has.
    [[nodiscard]] QString profileName(std::uint32_t number) const;
    [[nodiscard]] std::string application() const;
    void launch();
    void startListening();
    void stopListening();
    Status receiveDeviceList(const Event& event);
    void tellWhetherGone();

    Panel m_panel;
    QPointer<QWidget> m_view;
    std::unique_ptr<EventBusNotifier> m_notifier; ///< null without a session bus
    std::unique_ptr<LiveHelper> m_live;           ///< never null
    DeviceList m_deviceList{};
    ProcessSerialNumber m_helper; ///< the helper that runs now; {0, 0} for none
    bool m_isOpen = false;        ///< the panel is shown
    bool m_listWaits = false;     ///< a list has come that nobody has taken
    bool m_isStarting = false;    ///< launched, and neither in the process list yet nor ended
    bool m_isGone = false;        ///< until it is in the process list again
    bool m_listHasCome = false;
};

} // namespace quorvi
