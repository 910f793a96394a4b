// Drives an EventBus from Qt's event loop, nested ones included.
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace quorvi {

class EventBus;

class EventBusNotifier : public QObject {
  public:
    /// The bus must outlive this object.
    explicit EventBusNotifier(EventBus& bus);
    ~EventBusNotifier() override;

  private:
    void process();
    void schedule();
    void watch();

    EventBus& m_bus;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable;
    bool m_scheduled = false;
};

} // namespace quorvi
