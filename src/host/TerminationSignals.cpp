#include "host/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace quorvi {

namespace {

std::array<int, 2> gSignalPipe{-1, -1};

/// A signal handler may do no more than write a byte for the event loop.
extern "C" void leaveByte(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = write(gSignalPipe[1], &byte, 1);
}

} // namespace

void quitOnTerminationSignals() {
    if (pipe2(gSignalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(gSignalPipe[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] { QCoreApplication::exit(0); });
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signalNumber, leaveByte);
}

} // namespace quorvi
