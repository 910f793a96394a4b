// The names of keys in the panel, while the layout changes.

#include <QAbstractButton>
#include <QLineEdit>

#include "layouts/X11KeyboardLayout.h"
#include "model/CommandCodes.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"
#include "support/VirtualDisplay.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr std::int32_t kUsageOfQ = 0x14;
constexpr std::int32_t kUsbCommand = 0x40;

/// A tree whose second button types the key right of Tab with Command held.
plist::Dictionary treeWithSingleKey() {
    auto tree = PaneFixture::sampleTree();
    const auto profiles = tree.array("profiles");
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        const auto button = profiles.dictionary(i).dictionary("buttons").dictionary("02");
        button.set("command", commands::singleKey);
        button.set("param1", kUsageOfQ);
        button.set("param2", kUsbCommand);
    }
    return tree;
}

/// A panel that names keys by the layout of that display, whichever one its window is on.
PaneOptions followingLayoutOf(const VirtualDisplay& display) {
    return {.watchKeyboardLayout = [&display] {
        const EnvironmentVariable variable("DISPLAY", display.name());
        return std::make_unique<KeyboardLayoutWatcher>(connectToX11Keyboard());
    }};
}

} // namespace

class KeyboardLayoutTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        for (const char* program : {"Xvfb", "setxkbmap"})
            if (!isInstalled(program))
                QSKIP(program);
    }

    // The first, since names once read stay known.
    void aPanelWithoutALayoutOpensAllTheSame() {
        PaneFixture fixture;
        fixture.openWith(treeWithSingleKey());
        auto* popUp = fixture.find<PopUpButton>("quorviMenuTop2");
        QVERIFY(titleOfItem(*popUp->itemWithTag(commands::singleKey)).endsWith(QStringLiteral("+???")));
    }

    void namesInThePopUpsFollowTheLayoutInUse() {
        const VirtualDisplay display;
        QVERIFY(display.setLayout("us"));
        PaneFixture fixture(followingLayoutOf(display));
        fixture.openWith(treeWithSingleKey());
        auto* popUp = fixture.find<PopUpButton>("quorviMenuTop2");
        const auto title = [popUp] { return titleOfItem(*popUp->itemWithTag(commands::singleKey)); };
        const QString american = title();
        QVERIFY2(american.endsWith(QStringLiteral("+q")), qPrintable(american));
        QVERIFY(display.setLayout("fr"));
        QTRY_VERIFY2(title().endsWith(QStringLiteral("+a")), qPrintable(title()));
        QVERIFY(display.setLayout("us"));
        QTRY_COMPARE(title(), american);
        QVERIFY(fixture.commandsBecome({})); // what the user sees changes, and nothing else
    }

    void theOpenSingleKeyPanelFollowsTheLayoutInUse() {
        const VirtualDisplay display;
        QVERIFY(display.setLayout("us"));
        PaneFixture fixture(followingLayoutOf(display));
        fixture.openWith(treeWithSingleKey());
        QStringList shown;
        whenSheetIsUp(fixture.window.get(), "quorviPanelSingleKey", [&](QDialog* sheet) {
            auto* field = outlet<QLineEdit>(sheet, "quorviFieldSingleKey");
            shown << field->text();
            if (!display.setLayout("fr") ||
                !QTest::qWaitFor([&] { return field->text() != shown.first(); }, kWindowPatienceMs))
                qFatal("the field does not follow the layout");
            shown << field->text();
            clickButton(outlet<QAbstractButton>(sheet, "quorviSingleKeyButtonCancel"));
        });
        fixture.find<PopUpButton>("quorviMenuTop2")->itemWithTag(commands::singleKey)->trigger();
        QTRY_COMPARE(shown.size(), 2);
        QVERIFY2(shown.first().endsWith(QStringLiteral("+q")), qPrintable(shown.first()));
        QVERIFY2(shown.last().endsWith(QStringLiteral("+a")), qPrintable(shown.last()));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }
};

QUORVI_PANE_TEST_MAIN(KeyboardLayoutTest)
#include "KeyboardLayoutTest.moc"
