// Binding a profile to an application, with the real chooser.

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>

#include "applications/ApplicationPanel.h"
#include "applications/games/SteamLibrary.h"
#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kGear = "quorviButtonProfileGear";

void writeText(const QString& path, const QByteArray& text) {
    QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("the file cannot be written");
}

class ApplicationFixture : public PaneFixture {
  public:
    explicit ApplicationFixture(const plist::Dictionary& tree = sampleTree()) {
        writeText(m_data.filePath(QStringLiteral("applications/org.bild.Bild.desktop")),
            "[Desktop Entry]\nType=Application\nName=Bild\nName[de]=Bilder\nExec=/usr/bin/bild %U\n");
        openWith(tree);
        selectTab(2);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QString path(const char* name) const { return m_data.filePath(QLatin1String(name)); }
    [[nodiscard]] plist::Dictionary savedDriver(std::size_t profile) const {
        return savedSettings().array("profiles").dictionary(profile).dictionary("driver");
    }
    /// Runs the action on the chooser as soon as it is open.
    void whenChooserIsOpen(std::function<void(ApplicationPanel*)> action) const {
        auto* timer = new QTimer(window.get());
        connectTimer(timer, std::move(action));
        timer->start(5);
    }
    [[nodiscard]] ApplicationPanel* chooser() const { return window->findChild<ApplicationPanel*>(); }

  private:
    void connectTimer(QTimer* timer, std::function<void(ApplicationPanel*)> action) const {
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, action = std::move(action)] {
            ApplicationPanel* panel = chooser();
            if (!panel || !panel->isVisible() || !panel->isActiveWindow())
                return;
            timer->stop();
            timer->deleteLater();
            action(panel);
        });
    }

    QTemporaryDir m_data;
    EnvironmentVariable m_dataHome{"XDG_DATA_HOME", m_data.path().toStdString()};
    EnvironmentVariable m_dataFolders{"XDG_DATA_DIRS", m_data.filePath(QStringLiteral("none")).toStdString()};
};

std::filesystem::path libraryOf(const PaneFixture& fixture) {
    return fixture.home.path().toStdString() + "/.local/share/Steam";
}

QList<QString> binding(const plist::Dictionary& driver) {
    QList<QString> texts;
    for (const char* key : {"application", "identifier", "signature", "executable"})
        texts << QString::fromStdU16String(driver.string(key));
    return texts;
}

} // namespace

class ProfileApplicationTest : public QObject {
    Q_OBJECT

  private slots:
    void anInstalledApplicationIsFoundByTypingAndBoundToTheProfile() {
        ApplicationFixture fixture;
        fixture.selectRow(kProfiles, 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        bool shown = false;
        fixture.whenChooserIsOpen([&](ApplicationPanel* panel) {
            shown = true;
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("bil"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
            QTest::keyClick(panel->windowHandle(), Qt::Key_Return);
        });
        chooseInGearMenu(fixture, kGear, 16);
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 1", "KyPR 1"})); // the menu's, and the choice's
        QVERIFY(shown);
        QCOMPARE(binding(fixture.savedDriver(1)), QList<QString>({"Bild", "org.bild.Bild", "", "bild"}));
        QCOMPARE(shownIn(fixture, kProfiles, 2), QStringList({"Every application", "Bild"}));
        QTRY_VERIFY(!fixture.chooser());
    }

    void aGameIsBoundByWhatItsLauncherSaysOfIt() {
        ApplicationFixture fixture;
        addSteamGame(libraryOf(fixture), "440", "Hats & Caps");
        fixture.whenChooserIsOpen([&](ApplicationPanel* panel) {
            QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("hats"));
            QTRY_VERIFY(panel->findChild<QPushButton*>("quorviApplicationButtonChoose")->isEnabled());
            QTest::keyClick(panel->windowHandle(), Qt::Key_Return);
        });
        chooseInGearMenu(fixture, kGear, 16);
        QTRY_COMPARE(
            binding(fixture.savedDriver(0)), QList<QString>({"Hats & Caps", "steam_app_440", "", "steam"}));
        QCOMPARE(shownIn(fixture, kProfiles, 2), QStringList({"Hats & Caps", "Every application"}));
        QTRY_VERIFY(!fixture.chooser());
        // It keeps its profile when it is not installed any more.
        std::filesystem::remove_all(libraryOf(fixture));
        fixture.connectDevices(1);
        QCOMPARE(shownIn(fixture, kProfiles, 2), QStringList({"Hats & Caps", "Every application"}));
        fixture.selectRow(kProfiles, 1);
        QTRY_COMPARE(fixture.savedSettings().dictionary("settings").integer("profileid"), 2);
        QCOMPARE(
            binding(fixture.savedDriver(0)), QList<QString>({"Hats & Caps", "steam_app_440", "", "steam"}));
    }

    void whatTheChooserSaysLaterOnIsInTheUsersLanguageToo() {
        const EnvironmentVariable language("LC_ALL", "de_DE.UTF-8");
        ApplicationFixture fixture;
        QString said;
        QString other;
        fixture.whenChooserIsOpen([&](ApplicationPanel* panel) {
            panel->findChild<QLineEdit*>("quorviFieldSearch")->setText("nothing is called so");
            const auto* label = panel->findChild<QLabel*>("textNoApplication");
            QTRY_COMPARE(label->text(), QStringLiteral("Keine Anwendung entspricht der Suche."));
            said = label->text();
            panel->findChild<QPushButton*>("quorviApplicationButtonOther")->click();
            other = panel->findChild<QFileDialog*>()->windowTitle();
            panel->reject();
        });
        chooseInGearMenu(fixture, kGear, 16);
        QTRY_VERIFY(!said.isEmpty());
        QTRY_VERIFY(!fixture.chooser());
        QCOMPARE(other, QStringLiteral("Anwendung auswählen"));
    }

    void cancellingChangesNothing() {
        ApplicationFixture fixture;
        bool shown = false;
        fixture.whenChooserIsOpen([&](ApplicationPanel* panel) {
            shown = true;
            QTest::keyClick(panel->windowHandle(), Qt::Key_Escape);
        });
        chooseInGearMenu(fixture, kGear, 16);
        QTRY_VERIFY(shown && !fixture.chooser());
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void aBundleWithoutANameGoesByItsFileName() {
        ApplicationFixture fixture;
        writeText(fixture.path("Maler.app/Contents/Info.plist"),
            "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>maler</string>"
            "<key>CFBundleIdentifier</key><string>org.maler</string>"
            "<key>CFBundleSignature</key><string>????"
            "</string></dict></plist>");
        fixture.pane->assignApplication(fixture.path("Maler.app"));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(binding(fixture.savedDriver(0)), QList<QString>({"Maler", "org.maler", "", "maler"}));
    }

    void theSignatureOfABundleIsKept() {
        ApplicationFixture fixture;
        writeText(fixture.path("Maler.app/Contents/Info.plist"),
            "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>maler</string>"
            "<key>CFBundleName</key><string>Der Maler</string>"
            "<key>CFBundleSignature</key><string>MALR</string></dict></plist>");
        fixture.pane->assignApplication(fixture.path("Maler.app"));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(binding(fixture.savedDriver(0)), QList<QString>({"Der Maler", "", "MALR", "maler"}));
    }

    void theListIsShownAnewWhenAnApplicationComesOrGoes() {
        ApplicationFixture fixture;
        writeText(fixture.path("games/spiel"), "#!/bin/sh\n");
        const QSignalSpy reloads(
            fixture.find<KyvarQuorviTableView>(kProfiles)->model(), &QAbstractItemModel::modelReset);
        fixture.pane->assignApplication(fixture.path("games/spiel"));
        QCOMPARE(reloads.count(), 1);
        chooseInGearMenu(fixture, kGear, 17);
        QTRY_COMPARE(reloads.count(), 2);
    }

    void whatIsLeftOfABindingWithoutAnApplicationIsKept() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).dictionary("driver").set("executable", u"x");
        ApplicationFixture fixture(tree);
        QAction item;
        setTagOfItem(item, 17);
        fixture.pane->actionMenuTableContext(&item);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(binding(fixture.savedDriver(0)), QList<QString>({"", "", "", "x"}));
    }

    void aPlainProgramGoesByItsFileNameAlone() {
        ApplicationFixture fixture;
        writeText(fixture.path("games/spiel"), "#!/bin/sh\n");
        fixture.pane->assignApplication(fixture.path("games/spiel"));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(binding(fixture.savedDriver(0)), QList<QString>({"spiel", "", "", "spiel"}));
    }

    void aChoiceWithoutAProgramChangesNothing() {
        ApplicationFixture fixture;
        writeText(fixture.path("Leer.app/Contents/Info.plist"), "<plist version=\"1.0\"><dict/></plist>");
        fixture.pane->assignApplication(fixture.path("Leer.app"));
        fixture.pane->assignApplication(QString());
        QVERIFY(fixture.commandsBecome({}));
    }

    void removingTheBindingEmptiesItsFourTextsAndKeepsTheirKeys() {
        auto tree = PaneFixture::sampleTree();
        const auto driver = tree.array("profiles").dictionary(0).dictionary("driver");
        for (const char* key : {"application", "identifier", "signature", "executable"})
            driver.set(key, u"x");
        ApplicationFixture fixture(tree);
        chooseInGearMenu(fixture, kGear, 17);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(binding(fixture.savedDriver(0)), QList<QString>({"", "", "", ""}));
        QVERIFY(fixture.savedDriver(0).has("executable"));
        QCOMPARE(shownIn(fixture, kProfiles, 2), QStringList({"Every application", "Every application"}));
        chooseInGearMenu(fixture, kGear, 17); // greyed now
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }

    void aPaneThatIsHiddenOrGoesAwayTakesTheChooserAlong() {
        ApplicationFixture fixture;
        bool shown = false;
        fixture.whenChooserIsOpen([&](ApplicationPanel*) {
            shown = true;
            fixture.pane->willUnselect();
            fixture.pane.reset();
        });
        chooseInGearMenu(fixture, kGear, 16);
        QTRY_VERIFY(shown);
        QTRY_VERIFY(!fixture.chooser());
    }
};

QUORVI_PANE_TEST_MAIN(ProfileApplicationTest)
#include "ProfileApplicationTest.moc"
