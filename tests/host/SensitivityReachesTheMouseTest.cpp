// A slider dragged with the display's own pointer, from the window to the file, the helper and the mouse.

#include <QTest>

#include <csignal>
#include <set>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/SliderTools.h"
#include "support/Tabs.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kSliderX[] = "quorviSliderSensitivityX";

// Where the record holds the sensitivity, as (DPI - 100) / 25: in force, and of the first profile's second
// stage, in which the default settings are.
constexpr int kCodeX = 5;
constexpr int kCodeY = 6;
constexpr int kStageCodeX = 218;
constexpr int kStageCodeY = 219;

int codeOf(int dpi) {
    return (dpi - 100) / 25;
}

std::vector<std::string> words(std::initializer_list<QString> texts) {
    std::vector<std::string> result;
    for (const QString& text : texts)
        result.push_back(text.toStdString());
    return result;
}

/// A drag of the pointer from one place to another in that many moves; the button comes up or stays down.
std::vector<std::string> dragCommand(QPoint from, int toX, int moves, bool release) {
    std::vector<std::string> command{
        "xdotool", "mousemove", std::to_string(from.x()), std::to_string(from.y()), "mousedown", "1"};
    for (int move = 1; move <= moves; ++move)
        for (const auto& word :
            words({QStringLiteral("mousemove"), QString::number(from.x() + (toX - from.x()) * move / moves),
                QString::number(from.y()), QStringLiteral("sleep"), QStringLiteral("0.004")}))
            command.push_back(word);
    if (release)
        command.insert(command.end(), {"mouseup", "1"});
    return command;
}

} // namespace

class SensitivityReachesTheMouseTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void aDragWithThePointer() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        window.clickTab(kSensitivityTab);
        auto* slider = window.find<QSlider>(kSliderX);
        QCOMPARE(slider->value(), 800);
        const auto before = session.record();

        std::set<int> shown;
        int fileBehind = 0;
        connect(slider, &QSlider::valueChanged, this, [&](int value) {
            shown.insert(value);
            // The panel was connected first, by its slider: it has saved this step by now.
            fileBehind += session.home.savedSettings().dictionary("settings").integer("dpix") != value;
        });
        const QPoint handle = slider->mapToGlobal(handleOf(*slider));
        const int end = slider->mapToGlobal(QPoint(slider->width() * 3 / 4, 0)).x();
        ChildProcess pointer(dragCommand(handle, end, 80, true));
        QTRY_VERIFY_WITH_TIMEOUT(!pointer.isRunning(), kWindowPatienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(!slider->isSliderDown(), kWindowPatienceMs);

        QVERIFY2(shown.size() > 10, "the drag went in fewer steps than a user sees");
        for (const int value : shown)
            QVERIFY2(value >= 100 && (value - 100) % 25 == 0, qPrintable(QString::number(value)));
        QCOMPARE(fileBehind, 0);
        const int last = slider->value();
        QVERIFY(last > 4000);
        const auto settings = session.home.savedSettings();
        QCOMPARE(settings.dictionary("settings").integer("dpix"), last);
        QCOMPARE(settings.dictionary("settings").integer("dpiy"), last);
        const auto stage = settings.array("profiles").dictionary(0).array("stages").dictionary(1);
        QCOMPARE(stage.integer("dpix"), last);
        const QString code = QString::number(codeOf(last));
        const QString was = QString::number(codeOf(800));
        QStringList expected;
        for (const int offset : {kCodeX, kCodeY, kStageCodeX, kStageCodeY})
            expected << QStringLiteral("%1: %2 -> %3").arg(QString::number(offset), was, code);
        QTRY_COMPARE_WITH_TIMEOUT(
            changes(before, session.record()), expected.join(QStringLiteral(", ")), kWindowPatienceMs);
    }

    void aProgramThatIsKilledInADragLosesNothingThatItTold() {
        const Session session;
        // The program's window is laid out as one of this process with the same settings.
        session.home.awaitDeviceList();
        QPoint handle;
        int end = 0;
        {
            const OpenWindow model;
            QVERIFY(model.showsMouse());
            model.clickTab(kSensitivityTab);
            auto* slider = model.find<QSlider>(kSliderX);
            handle = slider->mapTo(&model.host(), handleOf(*slider));
            end = slider->mapTo(&model.host(), QPoint(slider->width() * 3 / 4, 0)).x();
        }
        session.home.awaitDeviceList();
        const auto program = session.startSettings();
        const std::string id = visibleWindowOf(program->pid());
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        QVERIFY(xdotool({"windowactivate", "--sync", id, "key", "ctrl+Tab"}));
        QVERIFY(xdotool({"mousemove", "--window", id, std::to_string(handle.x()), std::to_string(handle.y()),
            "mousedown", "1"}));
        const auto saved = [&] {
            return session.home.savedSettings().dictionary("settings").integer("dpix");
        };
        const int first = saved();
        int last = first;
        for (int move = 1; move <= 20; ++move) {
            const int x = handle.x() + (end - handle.x()) * move / 20;
            QVERIFY(xdotool({"mousemove", "--window", id, std::to_string(x), std::to_string(handle.y())}));
            QTRY_VERIFY_WITH_TIMEOUT(saved() != last, kWindowPatienceMs);
            last = saved();
        }
        // What is written is told of a moment later.
        QTRY_COMPARE_WITH_TIMEOUT(session.recordByte(kCodeX), codeOf(last), kWindowPatienceMs);
        program->signal(SIGKILL); // the button is still down
        QCOMPARE(program->wait(), std::optional(128 + SIGKILL));
        QVERIFY(xdotool({"mouseup", "1"}));
        QVERIFY(last > 4000 && (last - 100) % 25 == 0);
        QCOMPARE(saved(), last);
        QCOMPARE(session.recordByte(kStageCodeX), codeOf(last));
    }
};

QUORVI_SESSION_TEST_MAIN(SensitivityReachesTheMouseTest)
#include "SensitivityReachesTheMouseTest.moc"
