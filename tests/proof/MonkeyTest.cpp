// Random actions on the real window. QUORVI_MONKEY_SEED and QUORVI_MONKEY_ACTIONS set the seed and the number
// of actions; scripts/monkey runs any number, under the sanitizers.

#include "proof/Monkey.h"

#include <QApplication>
#include <QTest>

#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

using namespace quorvi::test;

namespace {

constexpr int kActions = 2000;
constexpr int kSeed = 20261121;
/// The panel is closed and opened anew after so many.
constexpr int kActionsOfPanel = 1000;
constexpr int kActionsBetweenReports = 10000;
/// The longest that one action may take, on a busy machine and with the sanitizers.
constexpr std::chrono::seconds kPatienceWithAction(60);

QtMessageHandler gEarlierHandler = nullptr;

/// A platform without a display says so each time that it is asked for what a display does. A second click on
/// a row begins to edit it a moment later, when the row may have gone with the mouse; an editor that went
/// with its row still hears that it lost the focus.
bool isUsual(const QString& warning) {
    const auto startsWith = [&](const char* text) { return warning.startsWith(QLatin1String(text)); };
    return startsWith("This plugin does not support ") || startsWith("edit: ") ||
           warning.endsWith(QLatin1String(" called with an editor that does not belong to this view"));
}

void noteWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (isUsual(message))
        return;
    if (type != QtInfoMsg)
        Monkey::gWarnings << message;
    gEarlierHandler(type, context, message);
}

int numberIn(const char* variable, int otherwise) {
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? number : otherwise;
}

} // namespace

class MonkeyTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { gEarlierHandler = qInstallMessageHandler(noteWarnings); }
    void cleanupTestCase() { qInstallMessageHandler(gEarlierHandler); }

    void whateverIsDoneTheRulesHoldAfterEachSave() {
        const int seed = numberIn("QUORVI_MONKEY_SEED", kSeed);
        const int actions = numberIn("QUORVI_MONKEY_ACTIONS", kActions);
        const QString again =
            QStringLiteral("QUORVI_MONKEY_SEED=%1 QUORVI_MONKEY_ACTIONS=%2").arg(seed).arg(actions);
        qInfo("%s", qPrintable(again));
        Diary diary(again, kPatienceWithAction);
        Monkey monkey(std::uint32_t(seed), diary);
        while (monkey.done() < actions) {
            const QString complaint = monkey.use(std::min(kActionsOfPanel, actions - monkey.done()));
            if (monkey.done() % kActionsBetweenReports == 0)
                qInfo("%d actions", monkey.done());
            QVERIFY2(complaint.isEmpty(), qPrintable(complaint + '\n' + again));
        }
        qInfo("%d actions, %d saves, every rule kept", monkey.done(), monkey.saves());
    }
};

int main(int argc, char** argv) {
    // Nothing of the user's can be reached: neither files nor applications nor the session.
    const quorvi::test::TemporaryFolder home;
    for (const char* variable :
        {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        qputenv(variable, QByteArray::fromStdString(home.path().string()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); // the diary looks after each action, in its own time
    const PrivateBus bus;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    MonkeyTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MonkeyTest.moc"
