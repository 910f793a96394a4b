#include "pane/RecordingHelper.h"

#include <chrono>
#include <future>
#include <stdexcept>

namespace quorvi::test {

RecordingHelper::RecordingHelper(const std::string& processName)
    : m_bus(EventBus::connect()), m_sender(EventBus::connect()) {
    if (!m_bus || !m_sender || m_bus->ownName(processName) != NameResult::owned)
        throw std::runtime_error("no bus, or the name is taken");
    replyWith(0);
    m_bus->installHandler(kEventClassQuorvi, kEventCommand,
        [this](
            const Event& event, const ProcessSerialNumber&, Event& reply) { return receive(event, reply); });
    m_thread = std::thread([this] { serve(); });
}

RecordingHelper::~RecordingHelper() {
    m_stop = true;
    m_thread.join();
}

void RecordingHelper::serve() {
    while (!m_stop && m_bus->isConnected())
        performActions();
}

void RecordingHelper::performActions() {
    m_bus->wait(std::chrono::milliseconds(5));
    std::vector<std::function<void(EventBus&)>> actions;
    {
        const std::lock_guard lock(m_mutex);
        actions.swap(m_actions);
    }
    for (const auto& action : actions)
        action(*m_bus);
    m_bus->process();
}

void RecordingHelper::perform(std::function<void(EventBus& bus)> action) {
    auto task = std::make_shared<std::packaged_task<void(EventBus&)>>(std::move(action));
    auto done = task->get_future();
    {
        const std::lock_guard lock(m_mutex);
        m_actions.emplace_back([task](EventBus& bus) { (*task)(bus); });
    }
    done.get();
}

Status RecordingHelper::receive(const Event& event, Event& reply) {
    std::uint32_t message = 0;
    std::int32_t param = 0;
    if (event.getMagnitude(keyDirectObject, message) != noErr ||
        event.getInteger(kKeyCommandParameter, param) != noErr)
        return errAEDescNotFound;
    const std::lock_guard lock(m_mutex);
    m_commands << QStringLiteral("%1 %2").arg(QString::fromStdString(fourCharText(message))).arg(param);
    return m_answer(reply);
}

void RecordingHelper::replyWith(std::int32_t number) {
    answerWith([number](Event& reply) {
        reply.putInteger(keyDirectObject, number);
        return noErr;
    });
}

void RecordingHelper::answerWith(std::function<Status(Event& reply)> answer) {
    const std::lock_guard lock(m_mutex);
    m_answer = std::move(answer);
}

QStringList RecordingHelper::commands() const {
    const std::lock_guard lock(m_mutex);
    return m_commands;
}

void RecordingHelper::forget() {
    const std::lock_guard lock(m_mutex);
    m_commands.clear();
}

void RecordingHelper::sendDeviceList(std::uint16_t count) {
    DeviceList list;
    list.count = count;
    // Entries that follow a count of 0 mean nothing; they are there to be ignored.
    list.device[0].vendorID = 0x1209;
    sendToPanel(makeDeviceListEvent(list));
}

void RecordingHelper::sendToPanel(const Event& event) {
    ProcessSerialNumber panel;
    if (m_sender->findProcessByName("KyvarQuorviPane", &panel) != noErr)
        throw std::runtime_error("no panel is shown");
    if (m_sender->send(panel, event) != noErr)
        throw std::runtime_error("the event cannot be sent");
    m_sender->process();
}

void RecordingHelper::awaitPassedOn() {
    (void)m_sender->processes(); // which the bus is asked each time
}

} // namespace quorvi::test
