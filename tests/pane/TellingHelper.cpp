#include "pane/TellingHelper.h"

#include <stdexcept>

namespace quorvi::test {

ProcessSerialNumber shownPanel(EventBus& bus) {
    ProcessSerialNumber panel;
    if (bus.findProcessByName("KyvarQuorviPane", &panel) != noErr)
        throw std::runtime_error("no panel is shown");
    return panel;
}

TellingHelper::TellingHelper(Told told, const std::string& processName)
    : RecordingHelper(processName), m_told(std::move(told)) {
    perform([this](EventBus& bus) {
        m_helperObject = HelperObject::offer(bus, *this);
        m_frontObject = FrontObject::offer(bus);
        m_frontObject->onEnableGnomeExtension([this] { note(QStringLiteral("enable")); });
        m_frontObject->tell(m_told.front);
    });
}

TellingHelper::~TellingHelper() {
    perform([this](EventBus&) {
        m_helperObject.reset();
        m_frontObject.reset();
    });
}

void TellingHelper::change(const std::function<void(Told&)>& change) {
    perform([&](EventBus&) {
        change(m_told);
        m_helperObject->tellMiceChanged();
        m_helperObject->tellService();
        m_helperObject->tellDemonstration();
        m_helperObject->tellRunning();
        m_helperObject->tellFrontReason();
        m_frontObject->tell(m_told.front);
    });
}

void TellingHelper::tellInput(int input, bool pressed) {
    perform([&](EventBus& bus) {
        m_helperObject->tellInput({shownPanel(bus)}, "mouse-1", static_cast<std::uint8_t>(input), pressed);
    });
}

void TellingHelper::tellCode(std::uint16_t code, bool pressed) {
    perform([&](EventBus& bus) { m_helperObject->tellCode(shownPanel(bus), "mouse-1", code, pressed); });
}

QStringList TellingHelper::asked() const {
    const std::lock_guard lock(m_askedMutex);
    return m_asked;
}

MouseResult TellingHelper::note(const QString& what) {
    const std::lock_guard lock(m_askedMutex);
    m_asked << what;
    return m_told.answer;
}

void TellingHelper::listMice(std::function<void(std::vector<MouseEntry>)> answer) {
    answer(m_told.mice);
}

MouseResult TellingHelper::useMouse(const std::string& mouse, bool inUse) {
    return note(QStringLiteral("use %1 %2").arg(QString::fromStdString(mouse)).arg(int(inUse)));
}

MouseResult TellingHelper::setDpi(const std::string& mouse, std::uint16_t dpi) {
    return note(QStringLiteral("dpi %1 %2").arg(QString::fromStdString(mouse)).arg(dpi));
}

MouseResult TellingHelper::setCodes(const std::string& mouse, std::span<const std::uint16_t> codes) {
    QString what = QStringLiteral("codes ") + QString::fromStdString(mouse);
    for (const std::uint16_t code : codes)
        what += QStringLiteral(" %1").arg(code);
    return note(what);
}

MouseResult TellingHelper::beginSetUp(const std::string& mouse, const ProcessSerialNumber&) {
    return note(QStringLiteral("begin ") + QString::fromStdString(mouse));
}

MouseResult TellingHelper::watchKey(std::uint16_t code, const ProcessSerialNumber&) {
    return note(QStringLiteral("watch %1").arg(code));
}

void TellingHelper::endSetUp(const ProcessSerialNumber&) {
    note(QStringLiteral("end"));
}

} // namespace quorvi::test
