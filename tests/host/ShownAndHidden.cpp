#include "host/ShownAndHidden.h"

#include <QTest>

#include "support/WindowTools.h"

namespace quorvi::test {

namespace {

const std::string kWitness = "KyRO 7";

} // namespace

std::string ShownAndHidden::toldSoFar() {
    std::string states;
    for (const std::string& command : m_monitor.commands())
        if (command.starts_with("KyRO ") && command != kWitness)
            states += command.back();
    return states;
}

std::string ShownAndHidden::told(const std::string& expected) {
    static_cast<void>(QTest::qWaitFor([&] { return toldSoFar() == expected; }, kWindowPatienceMs));
    return toldSoFar();
}

std::string ShownAndHidden::toldAtLast() {
    if (!QTest::qWaitFor([this] { return !m_session.runs("KyvarQuorviPane"); }, kWindowPatienceMs))
        return "it is still there";
    // What one more panel tells comes after all that the first one has told.
    const auto witness = EventBus::connect();
    ProcessSerialNumber helper;
    if (witness->findProcessByName("KyvarQuorviHelper", &helper) != noErr ||
        witness->send(helper, makeCommand(kMessagePaneShown, 7), SendMode::noReply) != noErr ||
        !m_monitor.sees(kWitness))
        return "the helper is not there";
    return toldSoFar();
}

} // namespace quorvi::test
