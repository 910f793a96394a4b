// Every key of the settings with every type and extreme that a file can hold, opened in the real panel, and
// every control moved. By default each place gets one value, a different one each; QUORVI_WRONG_TYPES sets
// the number of values for each place, "all" for every one.

#include <QElapsedTimer>
#include <QTest>

#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "proof/ControlMoves.h"
#include "proof/Rules.h"
#include "proof/TreeDifference.h"
#include "proof/WrongValues.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int kSlowness = 20;
#else
constexpr int kSlowness = 4;
#endif
/// What a user waits for at most, for one action; on a busy machine and with the sanitizers longer.
constexpr int kMillisecondsOfAction = 500 * kSlowness;

/// Nobody cuts the power here, and there are many saves.
class CallsWithoutDisk final : public RecordingCalls {
  public:
    int renameat(int folder, const char* from, const char* to) override {
        return FileCalls::renameat(folder, from, to);
    }
    int renameat2(int folder, const char* from, const char* to, unsigned flags) override {
        return FileCalls::renameat2(folder, from, to, flags);
    }
    int fsync(int /*file*/) override { return 0; }
};

/// How many of the values each place gets; 0 for the short form.
std::size_t valuesOfPlace() {
    const QByteArray wanted = qgetenv("QUORVI_WRONG_TYPES");
    const std::size_t all = wrongValues().size();
    return wanted == "all" ? all : std::clamp<std::size_t>(std::size_t(wanted.toInt()), 0, all);
}

QString filledIn(QString pattern, int profile, int stage) {
    return pattern.replace(QLatin1Char('#'), QString::number(profile))
        .replace(QLatin1Char('@'), QString::number(stage));
}

/// Whether the path is the pattern's or lies below it.
bool isBelow(const QString& path, const QString& pattern) {
    const QStringList steps = path.split(QLatin1Char('/'));
    const QStringList wanted = pattern.split(QLatin1Char('/'));
    if (steps.size() < wanted.size())
        return false;
    for (int i = 0; i < int(wanted.size()); ++i)
        if (wanted.at(i) != QLatin1String("*") && wanted.at(i) != steps.at(i))
            return false;
    return true;
}

QStringList unexpected(const QStringList& changed, const QStringList& patterns) {
    QStringList result;
    for (const QString& path : changed)
        if (std::none_of(
                patterns.begin(), patterns.end(), [&](const QString& p) { return isBelow(path, p); }))
            result << path;
    return result;
}

} // namespace

class WrongTypesTest : public QObject {
    Q_OBJECT

    CallsWithoutDisk m_calls;
    std::unique_ptr<SensitivityFixture> m_panel;

    [[nodiscard]] plist::Value copyOfTree() const { return plist::deepCopy(m_panel->pane->deviceConfig()); }

    /// What the panel may change by itself when it reads the settings: assignments that lead nowhere are
    /// emptied, input 1 takes a primary click that nobody has, the current profile is numbered as it is, and
    /// the axes and the current stage follow the settings in force. What it saves then is read again.
    void checkWhatWasRead(const plist::Dictionary& inFile) const {
        const bool valid = KyvarValidateConfig(inFile, limits::minimumVersion);
        const plist::Value source = valid ? plist::Value(inFile) : m_panel->pane->getDefaultSettings();
        const QStringList changed =
            unexpected(differences(asWritten(source), asWritten(m_panel->pane->deviceConfig())),
                {QStringLiteral("settings/profileid"), QStringLiteral("settings/independentxy"),
                    QStringLiteral("profiles/*/stages/*/independentxy"),
                    QStringLiteral("profiles/*/stages/*/dpix"), QStringLiteral("profiles/*/stages/*/dpiy"),
                    QStringLiteral("profiles/*/buttons/*")});
        QVERIFY2(changed.isEmpty(), qPrintable("reading changed " + changed.join(QLatin1String(", "))));
    }

    void lookAtEveryTab() const {
        for (int tab = 0; tab < 5; ++tab) {
            QElapsedTimer time;
            time.start();
            m_panel->selectTab(tab);
            QVERIFY(!m_panel->window->grab().isNull());
            QVERIFY2(time.elapsed() < kMillisecondsOfAction,
                qPrintable(QStringLiteral("tab %1 took %2 ms").arg(tab).arg(time.elapsed())));
        }
    }

    void move(const ControlMove& control) const {
        const KyvarQuorviPane& pane = *m_panel->pane;
        m_panel->selectTab(control.tab);
        m_panel->window->activateWindow(); // no window manager gives the focus back when a sheet goes
        const plist::Value before = copyOfTree();
        const int stages = int(pane.deviceConfig()
                                   .array(keys::profiles)
                                   .dictionary(std::size_t(pane.profileIndex()))
                                   .array(keys::stages)
                                   .size());
        const int number = before.dictionary().dictionary(keys::settings).integer(keys::stage);
        const int stage = std::min(std::max(number, 1), stages) - 1;
        QStringList mayChange;
        for (const QString& pattern : control.mayChange)
            mayChange << filledIn(pattern, pane.profileIndex(), stage);
        QElapsedTimer time;
        time.start();
        control.move(*m_panel);
        const QStringList changed = unexpected(differences(before, pane.deviceConfig()), mayChange);
        QVERIFY2(
            changed.isEmpty(), qPrintable(control.name + " changed " + changed.join(QLatin1String(", "))));
        QVERIFY2(time.elapsed() < kMillisecondsOfAction,
            qPrintable(QStringLiteral("%1 took %2 ms").arg(control.name).arg(time.elapsed())));
    }

    void open(const Path& place, const WrongValue& value) {
        const auto inFile = writeSpoiltFile(m_panel->settingsFile(), place, value);
        // Unplugged and plugged in again: the settings are read afresh.
        m_panel->connectDevices(0);
        m_panel->connectDevices(1);
        checkWhatWasRead(inFile);
    }

  private slots:
    void initTestCase() {
        m_panel = std::make_unique<SensitivityFixture>(&m_calls);
        m_panel->open();
        m_panel->window->resize(900, 700);
    }
    void cleanupTestCase() { m_panel.reset(); }

    void everyKeyThatThePanelKnowsIsTried() {
        QSet<QString> tried;
        for (const Path& place : everyPlace())
            tried.insert(QString::fromStdString(place.back()));
        for (const std::string_view key : {keys::version, keys::firmware, keys::settings, keys::profiles,
                 keys::macros, keys::profileId, keys::pollingRate, keys::stage, keys::dpiX, keys::dpiY,
                 keys::independentXY, keys::name, keys::ledState, keys::defaultStage, keys::stages,
                 keys::buttons, keys::driver, keys::command, keys::param1, keys::param2, keys::string,
                 keys::autoSwitch, keys::application, keys::identifier, keys::signature, keys::executable,
                 keys::acceleration, keys::enableAcceleration, keys::sensitivityDisplay, keys::profileDisplay,
                 keys::macroId, keys::delay, keys::steps, keys::argument})
            QVERIFY2(tried.contains(QString::fromUtf8(key.data(), int(key.size()))), key.data());
        for (int input = 1; input <= limits::buttons; ++input)
            QVERIFY(tried.contains(QString::fromStdString(keys::button(input))));
    }

    void everyControlChangesItsOwnKeysAlone_data() {
        QTest::addColumn<int>("place");
        QTest::addColumn<int>("value");
        const std::size_t all = wrongValues().size();
        const std::size_t wanted = valuesOfPlace();
        const std::size_t count = std::max<std::size_t>(wanted, 1);
        for (std::size_t place = 0; place < everyPlace().size(); place += wanted == 0 ? 2 : 1)
            for (std::size_t turn = 0; turn < count; ++turn) {
                // Beside each other in the tree are not beside each other in the list of values.
                const std::size_t value = (place * 7 + turn) % all;
                QTest::addRow("%s: %s", qPrintable(pathText(everyPlace()[place])), wrongValues()[value].name)
                    << int(place) << int(value);
            }
    }

    void everyControlChangesItsOwnKeysAlone() {
        QFETCH(int, place);
        QFETCH(int, value);
        open(everyPlace()[std::size_t(place)], wrongValues()[std::size_t(value)]);
        lookAtEveryTab();
        for (const ControlMove& control : controlMoves()) {
            if (QTest::currentTestFailed())
                return;
            move(control);
        }
        QVERIFY(differences(asWritten(m_panel->pane->deviceConfig()), m_panel->savedSettings()).isEmpty());
    }
};

QUORVI_PANE_TEST_MAIN(WrongTypesTest)
#include "WrongTypesTest.moc"
