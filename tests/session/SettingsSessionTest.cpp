// The settings from reading to saving, with a document and a file, and nothing of the panel's controls.

#include "session/SettingsSession.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "document/Document.h"
#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"
#include "window/Notices.h"
#include "window/Sheets.h"

using namespace quorvi;
namespace fs = std::filesystem;

namespace {

QString sameText(const char* key) {
    return QString::fromUtf8(key);
}

/// A panel that shows the default settings and has no file yet.
class Panel final : private DocumentOwner {
  public:
    Panel() {
        document.setHasDevice(true);
        session.open();
        session.readAfresh();
    }

    [[nodiscard]] fs::path file() const { return userSettingsPath(home.path().toStdString()); }
    [[nodiscard]] plist::Dictionary saved() const { return getDefaultSettings(file()); }
    [[nodiscard]] plist::Dictionary firstProfile() const { return document.profiles().dictionary(0); }
    /// What another program would write: the lights of the first profile are others.
    void writeAsAnotherProgram(std::int32_t lights) const {
        const auto tree = plist::mutableDeepCopy(document.tree());
        tree.array(keys::profiles).dictionary(0).set(keys::ledState, lights);
        QVERIFY(saveSettings(tree, file()));
    }
    /// The user's change.
    void rename(const char16_t* name) {
        document.profile().set(keys::name, name);
        document.commit();
    }
    /// What stands at the window's foot; empty for nothing.
    [[nodiscard]] QString notice() const {
        const auto* label = view.findChild<QLabel*>(QStringLiteral("textNotice"));
        return label && label->isVisibleTo(&view) ? label->text() : QString();
    }

    QTemporaryDir home;
    QWidget view;
    Document document{*this};
    Sheets sheets{{.mainView = &view,
                      .confirmPanel = nullptr,
                      .question = nullptr,
                      .confirmButton = nullptr,
                      .cancelButton = nullptr},
        sameText};
    Notices notices{view, sameText};
    Bundle bundle{QUORVI_BUNDLE};
    bool userRecords = false;
    int listsShown = 0;
    SettingsSession session{
        {.context = {.document = document, .text = sameText, .sheets = sheets, .notices = notices},
            .view = view,
            .bundle = bundle,
            .homeFolder = home.path().toStdString(),
            .files = systemFileCalls(),
            .occupation = std::make_unique<Occupation>(
                std::vector<const KyvarQuorviTableView*>{}, sheets, [this] { return userRecords; }),
            .showLists = [this] { ++listsShown; }}};

  private:
    void showDocument(Shown /*shown*/) override {}
    void saveDocument() override { session.save(document.tree()); }
    void saveDocumentLater() override { session.saveLater(); }
};

} // namespace

class SettingsSessionTest : public QObject {
    Q_OBJECT

  private slots:
    void readsTheDefaultsWhereThereIsNoFile() {
        const Panel panel;
        QCOMPARE(panel.listsShown, 1);
        QCOMPARE(panel.document.profileIndex(), 0);
        QVERIFY(panel.document.stage());
        QVERIFY(!fs::exists(panel.file()));
    }

    void saysThatItHasSavedAndTellsOfASaveThatFails() {
        Panel panel;
        const QSignalSpy said(&panel.session, &SettingsSession::saved);
        panel.rename(u"First");
        QCOMPARE(said.count(), 1);
        fs::remove(panel.file());
        fs::create_directory(panel.file());
        panel.rename(u"Second");
        QCOMPARE(said.count(), 1);
        QVERIFY2(panel.notice().contains(QStringLiteral("~/Library/Preferences/")) &&
                     panel.notice().contains(QStringLiteral("A folder is in its place")),
            qPrintable(panel.notice()));
        fs::remove(panel.file());
        panel.session.retryFailedSave();
        QCOMPARE(said.count(), 2);
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(
            panel.saved().array(keys::profiles).dictionary(0).string(keys::name), std::u16string(u"Second"));
    }

    void savesTheRepairOfWhatItReadsOnlyWhenItReadsByItself() {
        Panel panel;
        const QSignalSpy said(&panel.session, &SettingsSession::saved);
        panel.document.settings().set(keys::dpiX, 1250);
        panel.writeAsAnotherProgram(0);
        panel.session.followFile();
        QCOMPARE(panel.document.stage().integer(keys::dpiX), 1250);
        QVERIFY(panel.document.stage().boolean(keys::independentXY));
        QCOMPARE(said.count(), 0);
        panel.session.readAfresh();
        QCOMPARE(panel.document.stage().integer(keys::dpiX), 1250);
        QCOMPARE(said.count(), 1);
    }

    void takesAnothersSettingsOverWhenTheUserIsFree() {
        Panel panel;
        panel.rename(u"Ours");
        panel.writeAsAnotherProgram(0);
        panel.userRecords = true;
        panel.session.followFile();
        QCOMPARE(panel.listsShown, 1);
        panel.userRecords = false;
        panel.session.beginDrag();
        panel.session.followFile();
        QCOMPARE(panel.listsShown, 1);
        panel.session.endDrag();
        QTRY_COMPARE(panel.listsShown, 2);
        QCOMPARE(panel.firstProfile().integer(keys::ledState), 0);
    }

    void showsWhatASaveHasBroughtAlong() {
        Panel panel;
        panel.rename(u"Ours");
        panel.writeAsAnotherProgram(0);
        panel.document.profile().set(keys::name, u"Ours again");
        panel.document.commit();
        QCOMPARE(panel.firstProfile().integer(keys::ledState), 0);
        QCOMPARE(panel.listsShown, 1); // whoever has saved is not done yet
        QTRY_COMPARE(panel.listsShown, 2);
        QCOMPARE(panel.saved().array(keys::profiles).dictionary(0).string(keys::name),
            std::u16string(u"Ours again"));
    }

    void letsTheTreeGoWhenThePanelIsHiddenUnlessNoFileCanHaveIt() {
        Panel panel;
        fs::create_directories(panel.file());
        panel.rename(u"Ours");
        panel.session.close();
        QVERIFY(panel.document.tree());
        QCOMPARE(panel.document.profileIndex(), -1);
        fs::remove(panel.file());
        panel.session.open();
        panel.session.readAfresh();
        QCOMPARE(
            panel.saved().array(keys::profiles).dictionary(0).string(keys::name), std::u16string(u"Ours"));
        panel.session.close();
        QVERIFY(!panel.document.tree());
    }
};

QTEST_MAIN(SettingsSessionTest)
#include "SettingsSessionTest.moc"
