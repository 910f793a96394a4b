#include "applications/ApplicationPanel.h"
#include "applications/OtherApplicationDialog.h"
#include "platform/InterfaceText.h"
#include "resources/Interface.h"
#include "resources/XmlPropertyList.h"
#include "widgets/MenuItems.h"
#include "widgets/TableColumns.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

QString resource(const QString& name) {
    return QStringLiteral(QUORVI_RESOURCES "/") + name;
}

QVariantMap stringTable() {
    return test::readXmlPropertyList(resource("en.lproj/Localizable.strings"));
}

QVariantMap at(const QVariantList& list, int index) {
    return list.at(index).toMap();
}

} // namespace

class ResourcesTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { setInterfaceTextLookup({}); }

    void everyTextOfTheViewsIsInTheStringTable() {
        const QVariantMap strings = stringTable();
        QStringList asked;
        setInterfaceTextLookup([&asked](const QString& text) {
            asked << text;
            return text;
        });
        QWidget view;
        Interface interface(view);
        const ApplicationPanel applicationPanel;
        const OtherApplicationDialog otherApplication;
        for (int tag = 1; tag <= 4; ++tag) {
            for (const TableColumn& column : tableColumns(tag))
                asked << column.title;
        }
        QVERIFY(asked.size() > 250);
        for (const QString& text : asked)
            QVERIFY2(strings.contains(text), qPrintable(text));
    }

    void everyTextOfTheControllerIsInTheStringTable() {
        const QVariantMap strings = stringTable();
        for (const char* text : {"No device connected", "Connected", "Looking for the mouse…",
                 "The background program is not running.",
                 "The background program is not running. Changes are saved and reach the mouse when it runs "
                 "again.",
                 "Default Profile", "Untitled Profile", "Untitled Macro", "Profile:", "Macro:", "Press",
                 "Release", "Press button", "Release button", "%d DPI", "X = %d, Y = %d DPI",
                 "X = %d,  Y = %d DPI", "Stage %1 of %2 is current. All stages, in DPI: %3",
                 "The pointer follows the hand unchanged at every speed.",
                 "Off: the pointer follows the hand unchanged.",
                 "At the hand's full speed, the pointer moves %1 times as fast.",
                 "Are you sure you want to restore all settings to default?",
                 "Delete profile: ^1\r\rAre you sure you want to delete this profile?",
                 "Delete macro: ^1\r\rAre you sure you want to delete this macro?", "(none)", "???", "F",
                 "No installed applications were found.", "No application matches the search.",
                 "No application", "Switches automatically", "Does not switch automatically"})
            QVERIFY2(strings.contains(text), text);
        // A label shows a line feed as a new line, and nothing else.
        QVERIFY(!strings.value("Delete macro: ^1\r\rAre you sure you want to delete this macro?")
                     .toString()
                     .contains('\r'));
    }

    void modifiersAreShownByTheNamesOnTheKeys() {
        const QVariantMap strings = stringTable();
        QCOMPARE(strings.value("Command").toString(), QString("Super"));
        QCOMPARE(strings.value("Option").toString(), QString("Alt"));
        QCOMPARE(strings.value("Control").toString(), QString("Ctrl"));
        QCOMPARE(strings.value("Shift").toString(), QString("Shift"));
        QCOMPARE(strings.value("delete").toString(), QString("Backspace"));
        QCOMPARE(strings.value("forward delete").toString(), QString("Delete"));
    }

    void viewsShowWhatTheLookupGives() {
        setInterfaceTextLookup([](const QString& text) { return "<" + text + ">"; });
        QWidget view;
        Interface interface(view);
        QCOMPARE(interface.main.quorviTabsMain->tabText(2), QString("<&Profiles>"));
        QCOMPARE(
            interface.main.quorviButtonStepRecord->property("alternateTitle").toString(), QString("<Stop>"));
        QCOMPARE(interface.main.quorviTableMacros->accessibleName(), QString("<Macros>"));
        QCOMPARE(
            titleOfItem(*interface.menus.quorviMenuCommands->actions().first()), QString("<Primary Click>"));
    }

    void withoutALookupTextsAreEnglish() {
        QCOMPARE(interfaceText("½ second"), QStringLiteral("½ second"));
        setInterfaceTextLookup([](const QString&) { return QStringLiteral("other"); });
        QCOMPARE(interfaceText("½ second", "a note"), QStringLiteral("other"));
    }

    void defaultsHoldOneProfileForTheFactoryMouse() {
        const QVariantMap tree =
            test::readXmlPropertyList(resource("Defaults.plist")).value("quorvi").toMap();
        QCOMPARE(tree.value("version").toInt(), 6);
        QCOMPARE(tree.value("firmware").toInt(), 0x0105);
        QCOMPARE(tree.value("macros"), QVariant(QVariantList()));
        const QVariantMap expected{{"profileid", 1}, {"pollingrate", 500}, {"stage", 2}, {"dpix", 800},
            {"dpiy", 800}, {"independentxy", false}};
        QCOMPARE(tree.value("settings").toMap(), expected);
        QCOMPARE(tree.value("profiles").toList().size(), 1);

        const QVariantMap profile = at(tree.value("profiles").toList(), 0);
        QCOMPARE(profile.value("name").toString(), QString("Default Profile"));
        QCOMPARE(profile.value("ledstate").toInt(), 3);
        QCOMPARE(profile.value("defaultstage").toInt(), 2);
        QList<int> stages;
        for (const QVariant& stage : profile.value("stages").toList()) {
            QCOMPARE(stage.toMap().value("dpix"), stage.toMap().value("dpiy"));
            QCOMPARE(stage.toMap().value("independentxy"), QVariant(false));
            stages << stage.toMap().value("dpix").toInt();
        }
        QCOMPARE(stages, QList<int>({400, 800, 1600, 3200}));
    }

    void defaultsOfTheDriverPart() {
        const QVariantMap tree =
            test::readXmlPropertyList(resource("Defaults.plist")).value("quorvi").toMap();
        const QVariantMap expected{{"autoswitch", false}, {"application", ""}, {"identifier", ""},
            {"signature", ""}, {"executable", ""}, {"acceleration", 1.0}, {"enableaccel", false},
            {"sensitivityosd", true}, {"profileosd", true}};
        QCOMPARE(at(tree.value("profiles").toList(), 0).value("driver").toMap(), expected);
    }

    void defaultsGiveEachInputACommandThatItsMenuHas() {
        const QVariantMap tree =
            test::readXmlPropertyList(resource("Defaults.plist")).value("quorvi").toMap();
        const QVariantMap buttons = at(tree.value("profiles").toList(), 0).value("buttons").toMap();
        QList<int> codes;
        for (const QVariant& button : buttons)
            codes << button.toMap().value("command").toInt();
        QCOMPARE(buttons.keys(), QStringList({"01", "02", "03", "04", "05", "06", "07", "08", "09"}));
        QCOMPARE(codes, QList<int>({1, 2, 3, 5, 6, 16, 17, 8, 9}));
        QWidget owner;
        const Menus menus = createMenus(owner);
        for (int i = 0; i < 9; ++i) {
            PopUpButton button;
            button.setMenu(
                copyOfMenu(i < 7 ? *menus.quorviMenuCommands : *menus.quorviMenuWheelCommands).release());
            QVERIFY(button.selectItemWithTag(codes.at(i)));
        }
    }

    void bundleNamesItsPrincipalClassAndProgram() {
        const QVariantMap info =
            test::readXmlPropertyList(QStringLiteral(QUORVI_BUNDLE "/Contents/Info.plist"));
        QCOMPARE(info.value("CFBundleIdentifier").toString(), QString("com.kyvar.quorvi.prefpane"));
        QCOMPARE(info.value("CFBundleExecutable").toString(), QString("KyvarQuorvi.so"));
        QCOMPARE(info.value("NSPrincipalClass").toString(), QString("KyvarQuorviPane"));
        QCOMPARE(info.value("CFBundleName").toString(), QString("Kyvar Quorvi"));
        QCOMPARE(info.value("CFBundleShortVersionString").toString(), QString(QUORVI_VERSION));
        QCOMPARE(info.value("CFBundleVersion").toString(), QString(QUORVI_VERSION));
        const QString icon = info.value("NSPrefPaneIconFile").toString();
        QVERIFY(!icon.isEmpty() && QFile::exists(resource(icon)));
        QVERIFY(!info.value("NSPrefPaneIconLabel").toString().isEmpty());
    }
};

QUORVI_WIDGET_TEST_MAIN(ResourcesTest)
#include "ResourcesTest.moc"
