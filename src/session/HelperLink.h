// The panel's link to the helper application: it sends commands, receives the device list, and tracks whether
// the helper runs.
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
    /// The parts of the panel that it uses, which must outlive it, except the view.
    struct Panel {
        EditorContext context;
        QWidget& view;
        Interface& views;
        const Bundle& bundle; ///< contains the helper
        EventBus* bus;        ///< null without a session bus: then no messages are sent
        Workspace& workspace;
        LoginItemStore& loginItems;
        std::function<bool()> userIsDragging; ///< the mouse button is down on a slider
    };

    explicit HelperLink(Panel panel);
    ~HelperLink() override;
    HelperLink(const HelperLink&) = delete;
    HelperLink& operator=(const HelperLink&) = delete;

    /// Finds the process of that name, ignoring the case of A to Z. Leaves `psn` unchanged if it is not
    /// running.
    Status findProcess(const std::string& processName, ProcessSerialNumber* psn) const;
    /// Sends the helper a message and its parameter without waiting. Returns 0 if it was sent.
    Status sendMessage(FourCharCode message, std::int32_t param);
    /// Sends the named process a message. With a result, waits at most 15 ticks (250 ms) for the answer and
    /// stores its number there; the result stays unchanged on any error.
    Status sendControl(
        const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result);

    /// Launches the helper if it is not running, and registers it to start with every session.
    void start();
    /// Call this when the panel is shown: receives device lists from now on, and follows whether the helper
    /// runs.
    void open();
    /// Call this when the panel is hidden.
    void close();
    /// Checks whether the helper runs and shows it. Called at every change on the bus; does nothing while the
    /// panel is hidden.
    void follow();
    /// Starts a missing helper. Does nothing while one is running or starting, or while the user drags.
    void bringBack();
    /// The same at the end of a drag, for a helper found missing during it.
    void bringBackAfterDrag() {
        if (m_isGone)
            bringBack();
    }
    /// Notifies the helper that the settings file has changed. Starts a missing helper, which reads the file
    /// by itself.
    void tellOfSave();

    /// Whether the window shows that no helper is running.
    [[nodiscard]] bool isGone() const { return m_isGone; }
    /// Whether the running helper has sent a device list since the panel was shown.
    [[nodiscard]] bool listHasCome() const { return m_listHasCome; }
    /// Takes the pending list; returns false if there is none, or the panel was hidden in the meantime.
    [[nodiscard]] bool takeList();
    /// The text below the title: why editing is disabled, or the mouse's state as reported by the helper.
    [[nodiscard]] QString connectionText() const;
    /// The helper's reports while the panel is shown.
    [[nodiscard]] LiveHelper& live() const { return *m_live; }

  signals:
    /// A device list has arrived, and the document knows whether there is a device; not emitted again before
    /// the list is taken. Connect it queued, so that the event is answered first.
    void listCame();
    /// connectionText() may have changed.
    void connectionChanged();

  private:
    [[nodiscard]] std::unique_ptr<LiveHelper> makeLive();
    /// The displayed name; empty for a number without a profile.
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
    ProcessSerialNumber m_helper; ///< the running helper; {0, 0} for none
    bool m_isOpen = false;        ///< the panel is shown
    bool m_listWaits = false;     ///< a list has arrived and not been taken
    bool m_isStarting = false;    ///< launched, but neither in the process list yet nor ended
    bool m_isGone = false;        ///< until it is in the process list again
    bool m_listHasCome = false;
};

} // namespace quorvi
