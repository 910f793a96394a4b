// The panel's very first start: a new user, no helper running, no user input.

#include <QElapsedTimer>
#include <QTest>

#include "host/BundleWithOtherHelper.h"
#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"

using namespace quorvi::test;

namespace {

/// The real helper, once the panel can be found: what the panel has told it by then has reached nobody.
constexpr char kLateHelper[] = R"(while :; do
    answer=$(dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus /org/freedesktop/DBus \
        org.freedesktop.DBus.NameHasOwner string:com.kyvar.KyvarQuorviPane) || exit 1
    case $answer in *true*) break ;; esac
done
exec ")" QUORVI_HELPER R"("
)";

} // namespace

class FirstStartTest : public QObject {
    Q_OBJECT

  private slots:
    void theMouseIsThereWithinTwoSeconds() {
        const Session session;
        QVERIFY(session.helpers().empty());
        QElapsedTimer sinceShown;
        sinceShown.start();
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        const auto elapsed = sinceShown.elapsed();
        QVERIFY2(elapsed < 2000, qPrintable(QStringLiteral("%1 ms").arg(elapsed)));
        QCOMPARE(session.helpers().size(), std::size_t(1));
        QVERIFY(session.isAttached());
    }

    void aHelperThatComesUpAfterThePanelFindsIt() {
        const Session session;
        const BundleWithOtherHelper bundle(kLateHelper);
        const OpenWindow window(bundle.path());
        QVERIFY(window.showsMouse());
        QCOMPARE(session.helpers().size(), std::size_t(1));
    }

    void everyControlShowsTheDefaults() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        QCOMPARE(window.selectedTitle("quorviMenuPollingRate"), QStringLiteral("500 Hz"));
        QVERIFY(window.isChecked("quorviBoxLightOnWheel"));
        QVERIFY(window.isChecked("quorviBoxLightOnBattery"));
        QCOMPARE(window.text("quorviTextDriverVersion"), QStringLiteral(QUORVI_VERSION));
        // Button 1 is the only primary click there is, so it cannot be given another function.
        for (int n = 1; n <= 9; ++n)
            QCOMPARE(window.isEnabled(qPrintable(QStringLiteral("quorviMenuTop%1").arg(n))), n != 1);
    }

    void theMouseHoldsTheDefaults() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        QCOMPARE(session.record().size(), std::size_t(13232));
        QCOMPARE(session.recordByte(kPollingCodeOffset), 2);
        QCOMPARE(session.recordByte(kFirstProfileLights), 3);
    }

    void nothingButTheFilesOfThePanelAppearsInTheHomeFolder() {
        const Session session;
        const QStringList whileOpen{".config/autostart/KyvarQuorviHelper.desktop"};
        const QStringList afterwards =
            whileOpen + QStringList("Library/Preferences/com.kyvar.quorvi.settings.plist");
        {
            const OpenWindow window;
            QVERIFY(window.showsMouse());
            QCOMPARE(session.home.files(), whileOpen);
        }
        QCOMPARE(session.home.files(), afterwards);
        QCOMPARE(session.home.savedPollingRate(), 500);
        QCOMPARE(session.home.savedLights(), 3);
    }

    void theEntryForLogInIsOneThatDesktopsTake() {
        const Session session;
        const OpenWindow window;
        const auto result = runProgram(
            {"desktop-file-validate", session.home.path() + "/.config/autostart/KyvarQuorviHelper.desktop"});
        QCOMPARE(result.output + result.error, std::string());
        QCOMPARE(result.exitCode, std::optional(0));
    }
};

QUORVI_SESSION_TEST_MAIN(FirstStartTest)
#include "FirstStartTest.moc"
