// The real panel's help button, and the page that the desktop must open.

#include <QTest>
#include <QUrl>

#include "host/OpenWindow.h"
#include "host/RecordedOpener.h"
#include "host/Session.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi::test;

namespace {

/// The desktop's opener is ours, for this process and what it starts.
class OurOpener {
  public:
    OurOpener() { makeRecordedOpener(m_folder.filePath("bin").toStdString()); }

  private:
    QTemporaryDir m_folder;
    EnvironmentVariable m_path{
        "PATH", m_folder.filePath("bin").toStdString() + ":" + qEnvironmentVariable("PATH").toStdString()};
};

QString addressOfPage(const char* page) {
    return QUrl::fromLocalFile(QStringLiteral(QUORVI_BUNDLE "/Contents/Resources/Help/%1.html").arg(page))
        .toString(QUrl::FullyEncoded);
}

} // namespace

class HelpOpensTest : public QObject {
    Q_OBJECT

  private slots:
    void theDesktopIsAskedForThePageOfTheTab() {
        const OurOpener opener;
        const Session session;
        const OpenWindow window;
        QVERIFY(window.showsMouse());
        const auto opened = [&] { return QString::fromStdString(openedWith(session.home.path())); };
        window.click("quorviButtonHelp");
        QTRY_COMPARE(opened(), addressOfPage("buttons") + "\n");
        window.clickTab(kMacrosTab);
        window.click("quorviButtonHelp");
        QTRY_COMPARE(opened(), addressOfPage("buttons") + "\n" + addressOfPage("macros") + "\n");
    }
};

QUORVI_SESSION_TEST_MAIN(HelpOpensTest)
#include "HelpOpensTest.moc"
