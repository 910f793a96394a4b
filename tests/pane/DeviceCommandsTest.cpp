// Polling rate, lights, restoring defaults, updates, help, and the sheets that ask and tell.

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// Chooses the item with the tag the way a user's choice arrives.
void choose(PopUpButton* popUp, int tag) {
    popUp->itemWithTag(tag)->trigger();
}

plist::Dictionary firstProfile(const plist::Dictionary& tree) {
    return tree.array("profiles").dictionary(0);
}

plist::Dictionary sampleWithLights(std::int32_t ledState) {
    auto tree = PaneFixture::sampleTree();
    firstProfile(tree).set("ledstate", ledState);
    return tree;
}

} // namespace

class DeviceCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void aPollingRateIsStoredShownSavedAndAnnounced() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        auto* rates = fixture.find<PopUpButton>("quorviMenuPollingRate");
        choose(rates, 1000);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(fixture.savedSettings().dictionary("settings").integer("pollingrate"), 1000);
        QCOMPARE(rates->selectedTag(), 1000);
    }

    void aPollingRateOutsideItsRangeChangesNothingButSaves_data() {
        QTest::addColumn<int>("tag");
        QTest::addColumn<int>("stored");
        QTest::newRow("124") << 124 << 500;
        QTest::newRow("1001") << 1001 << 500;
        QTest::newRow("126 is within the range") << 126 << 126;
    }

    void aPollingRateOutsideItsRangeChangesNothingButSaves() {
        QFETCH(int, tag);
        QFETCH(int, stored);
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        auto* rates = fixture.find<PopUpButton>("quorviMenuPollingRate");
        setTagOfItem(*rates->menu()->addAction(QStringLiteral("odd")), tag);
        choose(rates, tag);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(fixture.savedSettings().dictionary("settings").integer("pollingrate"), stored);
        QCOMPARE(rates->selectedTag(), stored);
    }

    void lightsChangeTheirOwnBitOfTheEditedProfileOnly_data() {
        QTest::addColumn<int>("before");
        QTest::addColumn<QByteArray>("box");
        QTest::addColumn<int>("after");
        QTest::newRow("3, wheel off") << 3 << QByteArray("quorviBoxLightOnWheel") << 2;
        QTest::newRow("0, battery on") << 0 << QByteArray("quorviBoxLightOnBattery") << 2;
        QTest::newRow("other bits stay, wheel on") << 0x70 << QByteArray("quorviBoxLightOnWheel") << 0x71;
        QTest::newRow("other bits stay, battery off")
            << 0x72 << QByteArray("quorviBoxLightOnBattery") << 0x70;
    }

    void lightsChangeTheirOwnBitOfTheEditedProfileOnly() {
        QFETCH(int, before);
        QFETCH(QByteArray, box);
        QFETCH(int, after);
        PaneFixture fixture;
        fixture.openWith(sampleWithLights(before));
        fixture.selectTab(4);
        fixture.click(box.constData());
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        const auto saved = fixture.savedSettings().array("profiles");
        QCOMPARE(saved.dictionary(0).integer("ledstate"), after);
        QCOMPARE(saved.dictionary(1).integer("ledstate"), 3);
    }

    void cancellingTheRestoreChangesAndSavesNothing() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(4);
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = sheet->findChild<QLabel*>("quorviTextConfirm")->text();
            QTest::mouseClick(sheet->findChild<QPushButton*>("quorviConfirmButtonCancel"), Qt::LeftButton);
        });
        fixture.click("quorviButtonRestoreDefaults");
        QCOMPARE(question, QStringLiteral("Are you sure you want to restore all settings to default?\n"
                                          "Resets this profile and the mouse's settings to the defaults. "
                                          "Macros and other profiles are kept."));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
        QVERIFY(fixture.commandsBecome({}));
    }

    void escapeCancelsTheRestoreAndReturnDoesToo() {
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
            PaneFixture fixture;
            fixture.openWith(PaneFixture::sampleTree());
            fixture.selectTab(4);
            whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm",
                [key](QDialog* sheet) { QTest::keyClick(sheet->windowHandle(), key); });
            fixture.click("quorviButtonRestoreDefaults");
            QVERIFY(fixture.commandsBecome({}));
        }
    }

    void restoringResetsTheDeviceWideSettingsAndTheEditedProfileOnly() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("pollingrate", 1000);
        const auto driver = firstProfile(tree).dictionary("driver");
        driver.set("application", u"Editor");
        driver.set("enableaccel", true);
        driver.set("autoswitch", true);
        firstProfile(tree).set("ledstate", 0);
        PaneFixture fixture;
        fixture.openWith(tree);
        fixture.selectTab(4);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonRestoreDefaults");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));

        const auto saved = fixture.savedSettings();
        const auto defaults = fixture.pane->getDefaultSettings();
        QCOMPARE(saved.dictionary("settings").integer("pollingrate"), 500);
        QVERIFY(saved.value("settings") == defaults.value("settings"));
        for (const char* key : {"ledstate", "defaultstage", "stages", "buttons"})
            QVERIFY2(firstProfile(saved).value(key) == firstProfile(defaults).value(key), key);
        const auto restored = firstProfile(saved).dictionary("driver");
        QVERIFY(!restored.boolean("enableaccel"));
        QCOMPARE(restored.string("application"), std::u16string(u"Editor"));
        QVERIFY(restored.boolean("autoswitch"));
        QCOMPARE(firstProfile(saved).string("name"), std::u16string(u"Desk"));
        QVERIFY(saved.array("profiles").value(1) == PaneFixture::sampleTree().array("profiles").value(1));
        QVERIFY(saved.value("macros") == PaneFixture::sampleTree().value("macros"));
        QCOMPARE(fixture.find<PopUpButton>("quorviMenuPollingRate")->selectedTag(), 500);
    }

    void restoringWithoutADefaultsFileStillRefreshesAndSaves() {
        QTemporaryDir bundle;
        PaneFixture fixture({.bundlePath = bundle.path().toStdString()});
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(4);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonRestoreDefaults");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void updatesAndHelpOpenOutsideAndChangeNothing() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(4);
        fixture.click("quorviButtonCheckForUpdates");
        fixture.selectTab(0);
        fixture.click("quorviButtonHelp");
        QCOMPARE(fixture.opened.size(), 2);
        QVERIFY(fixture.opened[0].startsWith(QStringLiteral("url https://")));
        QVERIFY(fixture.opened[1].endsWith(QStringLiteral("/Help/buttons.html")));
        QVERIFY(std::filesystem::exists(fixture.opened[1].mid(5).toStdString()));
        QVERIFY(fixture.commandsBecome({}));
    }

    void updatesWorkWithoutADevice() {
        PaneFixture fixture;
        fixture.select();
        fixture.selectTab(4);
        fixture.click("quorviButtonCheckForUpdates");
        QCOMPARE(fixture.opened.size(), 1);
    }

    void theItemReplacesTheFirstMarkOfTheMessageOnly_data() {
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("given");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("text");
        QTest::newRow("item with a mark in it")
            << QStringLiteral("A ^1 B") << true << QStringLiteral("x^1y") << QStringLiteral("A x^1y B");
        QTest::newRow("two marks") << QStringLiteral("A ^1 B ^1") << true << QStringLiteral("i")
                                   << QStringLiteral("A i B ^1");
        QTest::newRow("both") << QStringLiteral("^1^1") << true << QStringLiteral("^1")
                              << QStringLiteral("^1^1");
        QTest::newRow("no mark") << QStringLiteral("A") << true << QStringLiteral("i") << QStringLiteral("A");
        QTest::newRow("no item") << QStringLiteral("A ^1") << false << QString() << QStringLiteral("A ^1");
        QTest::newRow("a profile, on lines of its own")
            << QStringLiteral("Delete profile: ^1\r\rAre you sure you want to delete this profile?") << true
            << QStringLiteral("<b>&Game</b>")
            << QStringLiteral(
                   "Delete profile: <b>&Game</b>\n\nAre you sure you want to delete this profile?");
    }

    void theItemReplacesTheFirstMarkOfTheMessageOnly() {
        QFETCH(QString, message);
        QFETCH(bool, given);
        QFETCH(QString, item);
        QFETCH(QString, text);
        PaneFixture fixture;
        fixture.select();
        QString shown;
        Qt::TextFormat format = Qt::AutoText;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            const auto* label = sheet->findChild<QLabel*>("quorviTextConfirm");
            shown = label->text();
            format = label->textFormat();
            QTest::mouseClick(sheet->findChild<QPushButton*>("quorviConfirmButtonOK"), Qt::LeftButton);
        });
        QVERIFY(fixture.pane->confirmAction(message, given ? std::optional(item) : std::nullopt));
        QCOMPARE(shown, text);
        QCOMPARE(format, Qt::PlainText); // a name may look like markup
    }

    void aSheetBlocksTheWindowAndReturnsItsCode() {
        PaneFixture fixture;
        fixture.select();
        auto* sheet = fixture.find<QDialog>("quorviPanelConfirm");
        Qt::WindowModality modality = Qt::NonModal;
        const QWidget* active = nullptr;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* dialog) {
            modality = dialog->windowModality();
            active = QApplication::activeModalWidget();
            fixture.pane->actionButtonModalOK();
        });
        QCOMPARE(fixture.pane->modalDialog(sheet), 1);
        QCOMPARE(modality, Qt::WindowModal);
        QCOMPARE(active, sheet);
        QVERIFY(!sheet->isVisible());
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* dialog) { dialog->close(); });
        QCOMPARE(fixture.pane->modalDialog(sheet), 0);
    }

    void aSheetFollowsItsWindow() {
        PaneFixture fixture;
        fixture.select();
        QPoint distance(1000, 1000);
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* dialog) {
            fixture.window->move(fixture.window->pos() + QPoint(137, 91));
            const auto middle = [](const QWidget* window) { return window->geometry().center(); };
            (void)QTest::qWaitFor([&] {
                distance = middle(dialog) - middle(fixture.window.get());
                return distance.manhattanLength() < 60; // the window manager's frames
            });
            dialog->reject();
        });
        fixture.pane->modalDialog(fixture.find<QDialog>("quorviPanelConfirm"));
        QVERIFY2(distance.manhattanLength() < 60, qPrintable(QString::number(distance.manhattanLength())));
    }

    void theModalActionsDoNothingWithoutASheet() {
        PaneFixture fixture;
        fixture.select();
        fixture.pane->actionButtonModalOK();
        fixture.pane->actionButtonModalCancel();
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        QVERIFY(fixture.pane->confirmAction(QStringLiteral("A"), std::nullopt));
    }

    void aTextWithoutATranslationIsItsKey() {
        PaneFixture fixture;
        QCOMPARE(fixture.pane->locString(QStringLiteral("no such text")), QStringLiteral("no such text"));
        QCOMPARE(fixture.pane->locString(QStringLiteral("Command")), QStringLiteral("Super"));
    }
};

QUORVI_PANE_TEST_MAIN(DeviceCommandsTest)
#include "DeviceCommandsTest.moc"
