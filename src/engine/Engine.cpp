#include "engine/Engine.h"

#include "engine/Core.h"

namespace quorvi::engine {

Engine::Engine(Output& output) : m_core(std::make_unique<Core>(output)) {}

Engine::~Engine() = default;

bool Engine::setRecord(std::span<const std::uint8_t> record, Time now) {
    m_core->begin(now);
    const bool taken = m_core->setRecord(record);
    m_core->finish();
    return taken;
}

void Engine::setOptions(const Options& options, Time now) {
    m_core->begin(now);
    m_core->setOptions(options);
    m_core->finish();
}

void Engine::input(std::span<const input_event> frame, Time now) {
    m_core->begin(now);
    m_core->input(frame);
    m_core->finish();
}

std::optional<Time> Engine::nextWake() const {
    return m_core->nextWake();
}

void Engine::wake(Time now) {
    m_core->begin(now);
    m_core->wake();
    m_core->finish();
}

void Engine::releaseAll(Time now) {
    m_core->begin(now);
    m_core->releaseAll();
    m_core->finish();
}

Running Engine::running() const {
    return m_core->running();
}

bool Engine::isBusy() const {
    return m_core->isBusy();
}

} // namespace quorvi::engine
