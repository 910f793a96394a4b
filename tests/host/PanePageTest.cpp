// The panel as a page of an external settings application: however that handles its pages, the panel is shown
// and hidden alternately.

#include "host/PanePage.h"

#include <QDir>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include "host/Session.h"
#include "host/ShownAndHidden.h"
#include "support/Files.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;
namespace fs = std::filesystem;

namespace {

std::unique_ptr<LoadedPane> paneOf(const std::string& bundle) {
    QString error;
    return LoadedPane::load(QString::fromStdString(bundle), error);
}

/// A host's window with two pages, of which the first is the panel's. It shows the other one.
struct Host {
    Host() {
        session.startHelper();
        pages = std::make_unique<QStackedWidget>();
        page = new PanePage(paneOf(QUORVI_BUNDLE));
        pages->addWidget(page);
        other = new QWidget;
        pages->addWidget(other);
        pages->setCurrentWidget(other);
        pages->show();
    }

    Session session;
    ShownAndHidden panel{session};
    std::unique_ptr<QStackedWidget> pages;
    PanePage* page = nullptr;
    QWidget* other = nullptr;
};

/// A copy of the bundle as links, whose plug-ins can be changed.
class BundleWithOtherPlugins {
  public:
    BundleWithOtherPlugins() {
        const fs::path real = fs::path(QUORVI_BUNDLE) / "Contents";
        fs::create_directories(plugins());
        for (const char* entry : {"Info.plist", "Resources"})
            fs::create_symlink(real / entry, m_folder / "A.prefPane/Contents" / entry);
    }
    [[nodiscard]] std::string path() const { return m_folder.path("A.prefPane"); }
    [[nodiscard]] fs::path plugins() const { return m_folder / "A.prefPane/Contents/Linux"; }
    [[nodiscard]] static fs::path realPlugin() {
        return fs::path(QUORVI_BUNDLE) / "Contents/Linux/KyvarQuorvi.so";
    }

  private:
    TemporaryFolder m_folder;
};

const std::string kForThisQt = "KyvarQuorvi-qt" + std::to_string(QT_VERSION_MAJOR) + ".so";
const std::string kForAnotherQt = "KyvarQuorvi-qt" + std::to_string(QT_VERSION_MAJOR - 1) + ".so";

} // namespace

class PanePageTest : public QObject {
    Q_OBJECT

  private slots:
    void aPageThatIsNotShownTellsNothing() {
        Host host;
        host.pages.reset();
        QCOMPARE(host.panel.toldAtLast(), std::string());
    }

    void aHostThatScrollsItsPagesLeavesThatToTheTabs() {
        Session session;
        session.startHelper();
        QScrollArea host;
        host.setWidgetResizable(true);
        auto* module = new QWidget;
        auto* layout = new QVBoxLayout(module);
        layout->addWidget(new PanePage(paneOf(QUORVI_BUNDLE)));
        host.setWidget(module);
        host.resize(643, 610); // what System Settings 6 leaves in its usual window
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        auto* tabs = module->findChild<QTabWidget*>("quorviTabsMain");
        QVERIFY(tabs);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            QCOMPARE(module->height(), host.viewport()->height());
        }
    }

    void shownHiddenAndShownAgain() {
        Host host;
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("1"), std::string("1"));
        host.pages->setCurrentWidget(host.other);
        QCOMPARE(host.panel.told("10"), std::string("10"));
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("101"), std::string("101"));
        host.pages->hide();
        QCOMPARE(host.panel.toldAtLast(), std::string("1010"));
    }

    void flickeringCountsAsHowItEnds() {
        Host host;
        for (int i = 0; i < 3; ++i) {
            host.pages->setCurrentWidget(host.page);
            host.pages->setCurrentWidget(host.other);
        }
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("1"), std::string("1"));
        host.pages->setCurrentWidget(host.other);
        host.pages->setCurrentWidget(host.page);
        QCoreApplication::processEvents();
        host.pages.reset();
        QCOMPARE(host.panel.toldAtLast(), std::string("10"));
    }

    void destroyedWhileItIsShown() {
        Host host;
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("1"), std::string("1"));
        delete host.page;
        QCOMPARE(host.panel.toldAtLast(), std::string("10"));
    }

    void theApplicationEndsAndLeavesThePageWhereItIs() {
        Host host;
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("1"), std::string("1"));
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        QCOMPARE(host.panel.toldAtLast(), std::string("10"));
        host.pages.reset();
        QCOMPARE(host.panel.toldAtLast(), std::string("10"));
    }

    void aSecondPageTakesOverFromOneThatTheHostHasNotDestroyedYet() {
        Host host;
        host.pages->setCurrentWidget(host.page);
        QCOMPARE(host.panel.told("1"), std::string("1"));
        PanePage second(paneOf(QUORVI_BUNDLE));
        second.show();
        QCOMPARE(host.panel.told("101"), std::string("101"));
        host.pages.reset();
        QVERIFY(host.session.runs("KyvarQuorviPane"));
        second.hide();
        QCOMPARE(host.panel.toldAtLast(), std::string("1010"));
    }

    void aHostTakesThePluginForItsVersionOfQt() {
        const Session session;
        const BundleWithOtherPlugins bundle;
        writeFile(bundle.plugins() / "KyvarQuorvi.so", "for another Qt");
        QVERIFY(!paneOf(bundle.path()));
        fs::create_symlink(bundle.realPlugin(), bundle.plugins() / kForThisQt);
        QVERIFY(paneOf(bundle.path()));
    }

    void withoutOneForItsVersionItTakesTheBundlesOwn() {
        const Session session;
        const BundleWithOtherPlugins bundle;
        fs::create_symlink(bundle.realPlugin(), bundle.plugins() / "KyvarQuorvi.so");
        writeFile(bundle.plugins() / kForAnotherQt, "for another Qt");
        QVERIFY(paneOf(bundle.path()));
    }
};

QUORVI_SESSION_TEST_MAIN(PanePageTest)
#include "PanePageTest.moc"
