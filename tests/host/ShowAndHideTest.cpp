// The panel is hidden, shown again and closed, and notifies the helper.

#include <QAbstractItemView>
#include <QLineEdit>
#include <QTest>

#include "host/BundleWithOtherHelper.h"
#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/EnvironmentVariable.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi::test;
namespace fs = std::filesystem;

namespace {

constexpr int kNameColumn = 1;

/// A bundle with a helper whose start only leaves a mark.
class BundleWithMarkingHelper {
  public:
    [[nodiscard]] QString path() const { return m_bundle.path(); }
    [[nodiscard]] bool helperWasStarted() const { return fs::exists(mark()); }

  private:
    [[nodiscard]] std::string mark() const { return m_folder.filePath(QStringLiteral("mark")).toStdString(); }

    QTemporaryDir m_folder;
    BundleWithOtherHelper m_bundle{"echo started >>'" + mark() + "'\n"};
};

/// A tree with a second profile, which can be renamed.
quorvi::plist::Dictionary twoProfiles() {
    const auto tree = UserHome::defaults();
    const auto second = UserHome::defaults().array("profiles").dictionary(0);
    second.set("name", std::u16string(u"Game"));
    tree.array("profiles").append(second);
    return tree;
}

std::u16string savedNameOfSecond(const Session& session) {
    return session.home.savedSettings().array("profiles").dictionary(1).string("name");
}

void renameSecondProfile(const OpenWindow& window, const QString& name) {
    window.clickTab(kProfilesTab);
    auto* table = window.find<QAbstractItemView>("quorviTableProfiles");
    const QPoint cell = table->visualRect(table->model()->index(1, kNameColumn)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, cell);
    auto* editor = table->viewport()->findChild<QLineEdit*>();
    if (!editor)
        qFatal("the name cannot be edited");
    editor->selectAll();
    QTest::keyClicks(editor, name);
    QTest::keyClick(editor, Qt::Key_Return);
}

/// Counts how often the window was given an icon. Whether there is a picture in it is up to Qt's plug-ins.
class IconCounter : public QObject {
  public:
    explicit IconCounter(QWidget& window) { window.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        m_count += watched->isWidgetType() && event->type() == QEvent::WindowIconChange ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

  private:
    int m_count = 0;
};

} // namespace

class ShowAndHideTest : public QObject {
    Q_OBJECT

  private slots:
    void theWindowGetsItsIconOnceItIsDrawn() {
        const Session session;
        const OpenWindow window;
        const IconCounter icons(window.host());
        QCOMPARE(icons.count(), 0);
        QTRY_COMPARE(icons.count(), 1);
        // Also where Qt has no plug-in for drawings.
        QVERIFY(!window.host().windowIcon().pixmap(64).isNull());
        window.host().update();
        QCoreApplication::processEvents();
        QCOMPARE(icons.count(), 1);
    }

    // Some styles align menus by it.
    void theApplicationIsReadFromTheSideThatItsPanelIsReadFrom() {
        for (const auto& [locale, direction] :
            {std::pair{"ar_EG.UTF-8", Qt::RightToLeft}, {"C.UTF-8", Qt::LeftToRight}}) {
            const EnvironmentVariable language("LC_ALL", locale);
            const Session session;
            const OpenWindow window;
            QCOMPARE(QGuiApplication::layoutDirection(), direction);
        }
    }

    void hidingAndShowingTwice() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        for (int round = 0; round < 2; ++round) {
            fs::remove(session.home.settingsFile());
            window.host().showPane(-1);
            QCOMPARE(session.home.savedLights(), 3);
            QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
            window.host().showPane(0);
            QVERIFY(window.showsMouse());
            QVERIFY(session.runs("KyvarQuorviPane"));
        }
        QCOMPARE(session.helpers().size(), std::size_t(1));
        QCOMPARE(session.panelsToldOfDetaching(), 1);
    }

    void aMouseUnpluggedWhileThePaneIsHiddenIsSeenWhenItIsShown() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        const SheetCounter sheets(window);
        window.host().showPane(-1);
        QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
        session.detach();
        window.host().showPane(0);
        QVERIFY(window.showsNoMouse());
        session.attach();
        QVERIFY(window.showsMouse());
        QCOMPARE(sheets.count(), 0);
    }

    void aHiddenPaneIsNotTold() {
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        window.host().showPane(-1);
        QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
        QCOMPARE(session.panelsToldOfDetaching(), 0);
    }

    void closingTheWindowSavesWhatNoActionHasSaved() {
        const Session session;
        session.home.writeSettings(twoProfiles());
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        renameSecondProfile(window, QStringLiteral("Typed"));
        auto* model = window.find<QAbstractItemView>("quorviTableProfiles")->model();
        QTRY_COMPARE(model->index(1, kNameColumn).data().toString(), QStringLiteral("Typed"));
        QCOMPARE(savedNameOfSecond(session), std::u16string(u"Game"));
        QVERIFY(window.host().close());
        QCOMPARE(savedNameOfSecond(session), std::u16string(u"Typed"));
    }

    void theHelperForgetsAPanelThatIsClosedAndSurvives() {
        const Session session;
        {
            const OpenWindow window;
            QVERIFY(window.showsMouse());
            QVERIFY(window.host().close());
        }
        const auto helpers = session.helpers();
        QCOMPARE(helpers.size(), std::size_t(1));
        QTRY_VERIFY(!session.runs("KyvarQuorviPane"));
        QCOMPARE(session.panelsToldOfDetaching(), 0);
        QVERIFY(!session.isAttached());
        session.attach();
        QVERIFY(session.isAttached());
        QCOMPARE(session.helpers(), helpers);
    }

    void theNextStartFindsTheHelperAndLaunchesNone() {
        const Session session;
        {
            const OpenWindow window;
            QVERIFY(window.showsMouse());
        }
        const auto helpers = session.helpers();
        const BundleWithMarkingHelper bundle;
        {
            const OpenWindow window(bundle.path());
            QVERIFY(window.showsMouse());
        }
        QVERIFY(!bundle.helperWasStarted());
        QCOMPARE(session.helpers(), helpers);
    }

    void aHelperThatDoesNotRunIsLaunched() {
        const Session session;
        const BundleWithMarkingHelper bundle;
        const OpenWindow window(bundle.path());
        QTRY_VERIFY(bundle.helperWasStarted());
    }
};

QUORVI_SESSION_TEST_MAIN(ShowAndHideTest)
#include "ShowAndHideTest.moc"
