// A function that the user gives to a button is in the settings file and in the mouse a moment later, byte
// for byte. A button's bytes are its number, command and two parameters; those of button 1 begin at 232.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMenu>
#include <QTest>
#include <QWindow>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// The default settings, a second profile "Game", and a macro "Hello" with the identifier 7.
plist::Dictionary settingsToChooseFrom() {
    auto tree = UserHome::defaults();
    const auto game = UserHome::defaults().array("profiles").dictionary(0);
    game.set("name", u"Game");
    tree.array("profiles").append(game);
    const auto macro = plist::Dictionary::create();
    macro.set("macroid", 7);
    macro.set("name", u"Hello");
    macro.set("delay", 0);
    macro.set("steps", plist::Array::create());
    tree.array("macros").append(macro);
    return tree;
}

/// A panel with the mouse connected, at the buttons tab, and what the mouse held before anything was done.
struct ButtonsTab {
    ButtonsTab() {
        session.home.writeSettings(settingsToChooseFrom());
        window = std::make_unique<OpenWindow>();
        if (!window->showsMouse())
            qFatal("the panel does not show the mouse");
        window->waitUntilActive();
        before = session.record();
    }
    void choose(const char* popUp, const QStringList& titles) const {
        test::choose(window->find(popUp), titles);
    }
    void chooseInContextMenu(const char* popUp, const QStringList& titles) const {
        QWidget* control = window->find(popUp);
        QTest::mouseClick(control->window()->windowHandle(), Qt::RightButton, {},
            control->mapTo(control->window(), control->rect().center()));
        const auto menu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
        if (!QTest::qWaitFor([&] { return menu() != nullptr; }, kWindowPatienceMs))
            qFatal("%s has no context menu", popUp);
        clickInMenu(menu(), titles);
    }
    /// Waits until the mouse holds these changes of its record.
    [[nodiscard]] bool mouseBecomes(const QString& expected) const {
        if (QTest::qWaitFor([&] { return changes(before, session.record()) == expected; }, kWindowPatienceMs))
            return true;
        qWarning() << "changed is" << changes(before, session.record());
        return false;
    }
    [[nodiscard]] plist::Dictionary savedButton(const char* number) const {
        return session.home.savedSettings()
            .array("profiles")
            .dictionary(0)
            .dictionary("buttons")
            .dictionary(number);
    }

    Session session;
    std::unique_ptr<OpenWindow> window;
    std::vector<std::uint8_t> before;
};

} // namespace

class ButtonsReachTheMouseTest : public QObject {
    Q_OBJECT

  private slots:
    void aFunction() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop4", {"Desktop", "Show Desktop"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 128"));
        QCOMPARE(panel.savedButton("04").integer("command"), 128);
        QCOMPARE(panel.window->selectedTitle("quorviMenuTop4"), QStringLiteral("Show Desktop"));
        panel.choose("quorviMenuTop4", {"Back"});
        QVERIFY(panel.mouseBecomes(""));
    }

    void aFunctionOfTheWheel() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop9", {"Scroll Right"});
        QVERIFY(panel.mouseBecomes("265: 9 -> 11"));
    }

    void aProfile() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop4", {"Switch to Profile", "Game"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 34, 246: 0 -> 2"));
        QCOMPARE(panel.savedButton("04").string("string"), std::u16string(u"Game"));
        panel.choose("quorviMenuTop4", {"Profile: Game", "Default Profile"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 34, 246: 0 -> 1"));
    }

    void aMacro() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop4", {"Run Macro", "Hello"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 65, 246: 0 -> 7, 247: 0 -> 1"));
        QCOMPARE(panel.window->selectedTitle("quorviMenuTop4"), QStringLiteral("Macro: Hello"));
    }

    void theFunctionByDefault() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop4", {"Desktop", "Show Desktop"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 128"));
        panel.chooseInContextMenu("quorviMenuTop4", {"Reset to “Back”"});
        QVERIFY(panel.mouseBecomes(""));
        QCOMPARE(panel.savedButton("04").integer("command"), 5);
        QCOMPARE(panel.window->selectedTitle("quorviMenuTop4"), QStringLiteral("Back"));
    }

    void whatAllInputsDoInAnotherProfile() {
        const ButtonsTab panel;
        panel.choose("quorviMenuTop4", {"Desktop", "Show Desktop"});
        panel.choose("quorviMenuTop9", {"Scroll Right"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 128, 265: 9 -> 11"));
        panel.chooseInContextMenu("quorviMenuTop2", {"Copy All Inputs from Profile", "Game"});
        QVERIFY(panel.mouseBecomes(""));
    }

    void aKey() {
        const ButtonsTab panel;
        whenSheetIsUp(&panel.window->host(), "quorviPanelSingleKey", [](QDialog* sheet) {
            for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent left(type, Qt::Key_Left, Qt::NoModifier, 113, 0xFF51, 0); // as X11 tells of it
                QCoreApplication::sendEvent(sheet->windowHandle(), &left);
            }
            clickButton(outlet<QAbstractButton>(sheet, "quorviSingleKeyButtonOK"));
        });
        panel.choose("quorviMenuTop4", {"Press Key"});
        QVERIFY(panel.mouseBecomes("245: 5 -> 49, 246: 0 -> 80"));
    }
};

QUORVI_SESSION_TEST_MAIN(ButtonsReachTheMouseTest)
#include "ButtonsReachTheMouseTest.moc"
