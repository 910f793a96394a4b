// The help pages, and the ways to open them.

#include <QAction>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"
#include "support/Tabs.h"
#include "support/TemporaryFolder.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

void pressHelpKey(const PaneFixture& fixture) {
    QTest::keyClick(fixture.window->windowHandle(), Qt::Key_F1);
}

/// A bundle that has nothing but these files among its resources.
class BundleOf {
  public:
    explicit BundleOf(const std::vector<std::string>& resources) {
        for (const std::string& resource : resources)
            m_folder.write("Contents/Resources/" + resource, "a page");
    }
    /// What the panel opens with it on the first tab, within the resources.
    [[nodiscard]] QString openedHelp() const {
        PaneFixture fixture({.bundlePath = m_folder.path()});
        fixture.select();
        fixture.click("quorviButtonHelp");
        const QString resources = QString::fromStdString(m_folder.path("Contents/Resources/"));
        return fixture.opened.value(0).remove(resources);
    }

  private:
    TemporaryFolder m_folder;
};

} // namespace

class HelpTest : public QObject {
    Q_OBJECT

  private slots:
    void everyTabHasItsPage_data() {
        QTest::addColumn<int>("tab");
        QTest::newRow("buttons") << 0;
        QTest::newRow("sensitivity") << 1;
        QTest::newRow("profiles") << 2;
        QTest::newRow("macros") << 3;
        QTest::newRow("device") << 4;
    }

    void everyTabHasItsPage() {
        QFETCH(int, tab);
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(tab);
        fixture.click("quorviButtonHelp");
        const QString page = QStringLiteral(QUORVI_BUNDLE "/Contents/Resources/Help/%1.html")
                                 .arg(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(fixture.opened, QStringList{"file " + page});
        QVERIFY(std::filesystem::exists(page.toStdString()));
        QVERIFY(fixture.commandsBecome({}));
    }

    void thePageIsInTheLanguageOfTheTexts() {
        const EnvironmentVariable list("LANGUAGE", std::nullopt);
        const EnvironmentVariable locale("LC_ALL", "pt_BR.UTF-8");
        PaneFixture fixture;
        fixture.select();
        fixture.click("quorviButtonHelp");
        QCOMPARE(fixture.opened,
            QStringList{"file " QUORVI_BUNDLE "/Contents/Resources/pt_BR.lproj/Help/buttons.html"});
    }

    void aLanguageWithoutHelpIsShownTheEnglishOne() {
        const EnvironmentVariable list("LANGUAGE", std::nullopt);
        const EnvironmentVariable locale("LC_ALL", "fi_FI.UTF-8");
        PaneFixture fixture;
        fixture.select();
        fixture.click("quorviButtonHelp");
        QCOMPARE(fixture.opened, QStringList{"file " QUORVI_BUNDLE "/Contents/Resources/Help/buttons.html"});
    }

    void withoutAPageOfItsOwnATabIsExplainedByTheIndex() {
        QCOMPARE(
            BundleOf({"Help/index.html", "Help/macros.html"}).openedHelp(), QString("file Help/index.html"));
        QCOMPARE(BundleOf({"Help/index.html", "Help/buttons.html/page"}).openedHelp(),
            QString("file Help/index.html"));
    }

    // The reader's language counts for more than the place within the help.
    void anIndexInTheLanguageIsBetterThanAPageInAnother() {
        const EnvironmentVariable list("LANGUAGE", std::nullopt);
        const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
        QCOMPARE(BundleOf({"de.lproj/Help/index.html", "Help/index.html", "Help/buttons.html"}).openedHelp(),
            QString("file de.lproj/Help/index.html"));
    }

    void withoutAnIndexNothingIsNamed() {
        QCOMPARE(BundleOf({"Help/buttons.html"}).openedHelp(), QString("file "));
    }

    void theKeyForHelpOpensThePageToo() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(kMacrosTab);
        pressHelpKey(fixture);
        QCOMPARE(fixture.opened.size(), 1);
        QVERIFY(fixture.opened[0].endsWith(QStringLiteral("/Help/macros.html")));
    }

    void theKeyWorksWithoutADevice() {
        PaneFixture fixture;
        fixture.select();
        pressHelpKey(fixture);
        QCOMPARE(fixture.opened.size(), 1);
    }

    void otherKeysOpenNothing() {
        PaneFixture fixture;
        fixture.select();
        QTest::keyClick(fixture.window->windowHandle(), Qt::Key_F2);
        QTest::keyClick(fixture.window->windowHandle(), Qt::Key_F1, Qt::ShiftModifier);
        QCOMPARE(fixture.opened, QStringList());
    }

    void inThePanelTheKeyIsNotTheHosts() {
        PaneFixture fixture;
        fixture.select();
        QAction hosts;
        hosts.setShortcut(QKeySequence::HelpContents);
        fixture.window->addAction(&hosts);
        int asked = 0;
        connect(&hosts, &QAction::triggered, this, [&asked] { ++asked; });
        pressHelpKey(fixture);
        QCOMPARE(fixture.opened.size(), 1);
        QCOMPARE(asked, 0);
    }
};

QUORVI_PANE_TEST_MAIN(HelpTest)
#include "HelpTest.moc"
