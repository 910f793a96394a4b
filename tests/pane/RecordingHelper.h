// A process on the bus that owns the helper's name and records its messages, in order.
#pragma once

#include <QStringList>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "events/DeviceList.h"
#include "events/EventBus.h"

namespace quorvi::test {

class RecordingHelper {
  public:
    /// Owns the name before the constructor returns.
    explicit RecordingHelper(const std::string& processName = "KyvarQuorviHelper");
    virtual ~RecordingHelper();
    RecordingHelper(const RecordingHelper&) = delete;
    RecordingHelper& operator=(const RecordingHelper&) = delete;

    /// The commands so far, each as its four characters and its parameter: "KyPR 0".
    [[nodiscard]] QStringList commands() const;
    void forget();
    /// Commands that want a reply get this number as direct object from now on.
    void replyWith(std::int32_t number);
    /// Commands are answered so from now on.
    void answerWith(std::function<Status(Event& reply)> answer);

    /// Sends the panel that is shown a list of that many devices.
    void sendDeviceList(std::uint16_t count);
    void sendToPanel(const Event& event);
    /// Returns when the bus has passed on what was sent to the panel: its next answer to the panel comes
    /// behind it.
    void awaitPassedOn();

    /// Does that on the helper's own thread, which alone may use its bus, and returns when it is done.
    void perform(std::function<void(EventBus& bus)> action);

  private:
    void serve();
    void performActions();
    Status receive(const Event& event, Event& reply);

    std::unique_ptr<EventBus> m_bus;    // the thread's
    std::unique_ptr<EventBus> m_sender; // the test's own
    mutable std::mutex m_mutex;
    QStringList m_commands;
    std::function<Status(Event& reply)> m_answer;
    std::vector<std::function<void(EventBus&)>> m_actions;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

} // namespace quorvi::test
