// The settings from reading to saving, with a document and a file, without the panel's controls.

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
#include "support/EnvironmentVariable.h"
#include "window/Notices.h"
#include "window/Sheets.h"

using namespace quorvi;
using quorvi::test::EnvironmentVariable;
namespace fs = std::filesystem;

namespace {

QString sameText(const char* key) {
    return QString::fromUtf8(key);
}

/// The disk is full where copies are kept, and has room where the settings are.
class FullHistory final : public FileCalls {
  public:
    bool isFull = false;

    int openat(int folder, const char* name, int flags, mode_t mode) override {
        const int file = FileCalls::openat(folder, name, flags, mode);
        std::error_code error;
        const auto path = fs::read_symlink("/proc/self/fd/" + std::to_string(folder), error);
        if (path.filename() == "history")
            m_copy = file;
        return file;
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        if (!isFull || file != m_copy)
            return FileCalls::write(file, bytes, count);
        errno = ENOSPC;
        return -1;
    }
    int close(int file) override {
        if (file == m_copy)
            m_copy = -1;
        return FileCalls::close(file);
    }

  private:
    int m_copy = -1;
};

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

    /// The names of the first profile in the copies, newest first.
    [[nodiscard]] std::vector<std::u16string> copies() const {
        std::vector<std::u16string> names;
        for (const DatedCopy& copy : session.history().list())
            names.push_back(nameIn(session.history().read(copy).backup.tree));
        return names;
    }
    [[nodiscard]] static std::u16string nameIn(const plist::Dictionary& tree) {
        return tree.array(keys::profiles).dictionary(0).string(keys::name);
    }

    QTemporaryDir home;
    FullHistory files;
    std::chrono::system_clock::time_point now =
        std::chrono::sys_days(std::chrono::days(20779)); ///< 2026-11-22
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
            .files = files,
            .copies = {.folder = home.path().toStdString() + "/history", .now = [this] { return now; }},
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
                     panel.notice().contains(QStringLiteral("There is a folder in its place")),
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

    void keepsWhatTheFileHeldBeforeTheFirstChangeOfADay() {
        const EnvironmentVariable zone("TZ", "UTC");
        Panel panel;
        panel.rename(u"First");
        QVERIFY(panel.copies().empty()); // there was nothing before
        panel.rename(u"Second");
        panel.rename(u"Third");
        QCOMPARE(panel.copies(), std::vector<std::u16string>{u"First"});
        panel.now += std::chrono::hours(24);
        QVERIFY(panel.session.save(panel.document.tree()));
        QCOMPARE(panel.copies().size(), 1U); // nothing was changed
        panel.rename(u"Fourth");
        panel.rename(u"Fifth");
        QCOMPARE(panel.copies(), (std::vector<std::u16string>{u"Third", u"First"}));
        QVERIFY(panel.session.history().list()[0].reason == CopyReason::firstChangeOfDay);
    }

    void keepsWhatAnotherProgramHadPutIntoTheFile() {
        Panel panel;
        panel.rename(u"Ours");
        const auto theirs = plist::mutableDeepCopy(panel.document.tree());
        theirs.array(keys::profiles).dictionary(0).set(keys::name, u"Theirs");
        QVERIFY(saveSettings(theirs, panel.file()));
        panel.document.profile().set(keys::ledState, 0);
        panel.document.commit();
        QCOMPARE(panel.copies(), std::vector<std::u16string>{u"Theirs"});
    }

    void keepsACopyWheneverAnEditorAsksForOne() {
        Panel panel;
        panel.rename(u"First");
        QVERIFY(panel.session.keepCopyBefore(CopyReason::beforeDeletion));
        panel.rename(u"Second");
        QVERIFY(panel.session.keepCopyBefore(CopyReason::beforeRestore));
        QCOMPARE(panel.copies(), (std::vector<std::u16string>{u"Second", u"First"}));
        QVERIFY(panel.session.history().list()[0].reason == CopyReason::beforeRestore);
    }

    void savesWithoutACopyWhenTheDiskIsFullAndSaysSoOnce() {
        Panel panel;
        panel.rename(u"First");
        panel.files.isFull = true;
        panel.rename(u"Second");
        QCOMPARE(panel.notice(),
            QStringLiteral("No copy of your earlier settings could be kept in ~/history: No space left on "
                           "the disk. This does not stop your changes from being saved."));
        QCOMPARE(panel.nameIn(panel.saved()), std::u16string(u"Second"));
        panel.notices.withdraw(Notice::copyFailed); // as the user does
        panel.rename(u"Third");
        QVERIFY(!panel.session.keepCopyBefore(CopyReason::beforeDeletion));
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(panel.nameIn(panel.saved()), std::u16string(u"Third"));
        panel.files.isFull = false;
        panel.rename(u"Fourth");
        QCOMPARE(panel.copies(), std::vector<std::u16string>{u"Third"});
        panel.files.isFull = true;
        QVERIFY(!panel.session.keepCopyBefore(CopyReason::beforeDeletion));
        QVERIFY(panel.notice().contains(QStringLiteral("No space left")));
        panel.files.isFull = false;
        QVERIFY(panel.session.keepCopyBefore(CopyReason::beforeDeletion));
        QCOMPARE(panel.notice(), QString());
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
