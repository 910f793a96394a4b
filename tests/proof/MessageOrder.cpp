#include "proof/MessageOrder.h"

#include <algorithm>

namespace quorvi::test {

namespace {

const QString kShown = QStringLiteral("KyRO 1");
const QString kHidden = QStringLiteral("KyRO 0");
const QString kRecording = QStringLiteral("KyDM 1");
const QString kRecorded = QStringLiteral("KyDM 0");

QString brokenRecordings(const QStringList& commands) {
    bool recording = false;
    for (const QString& command : commands) {
        if (!command.startsWith(QLatin1String("KyDM")))
            continue;
        if (command != (recording ? kRecorded : kRecording))
            return QStringLiteral("%1 while %2").arg(command, recording ? "recording" : "not recording");
        recording = !recording;
    }
    return recording ? QStringLiteral("the recording does not end") : QString();
}

} // namespace

QString brokenOrder(const QStringList& commands, const QStringList& saves) {
    if (commands.value(0) != kShown)
        return QStringLiteral("the first is %1").arg(commands.value(0));
    if (commands.count(kShown) != 1 || commands.count(kHidden) != 1)
        return QStringLiteral("shown or hidden other than once");
    const QStringList after = commands.mid(commands.indexOf(kHidden) + 1);
    if (after.size() > 1 || !after.value(0, QStringLiteral("KyPR")).startsWith(QLatin1String("KyPR")))
        return QStringLiteral("after it was hidden: %1").arg(after.join(QLatin1String(", ")));
    const QStringList told = commands.filter(QStringLiteral("KyPR "));
    const auto isOf = [](const QString& message, const QString& save) {
        return save == kAnyProfile || message == save;
    };
    if (!std::equal(told.begin(), told.end(), saves.begin(), saves.end(), isOf))
        return QStringLiteral("told of %1 saves, and there were %2").arg(told.size()).arg(saves.size());
    if (const QString recordings = brokenRecordings(commands); !recordings.isEmpty())
        return recordings;
    const auto known = [&](const QString& c) {
        return c == kShown || c == kHidden || c == kRecording || c == kRecorded ||
               c.startsWith(QLatin1String("KyPR "));
    };
    for (const QString& command : commands)
        if (!known(command))
            return QStringLiteral("unknown: %1").arg(command);
    return {};
}

} // namespace quorvi::test
