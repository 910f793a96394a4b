// Searches in System Settings that must find the panel.

#include <QTest>

#include "host/kde/KdeHost.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

/// What is typed, and the keyword of the panel that begins so.
struct Search {
    std::string typed;
    QString keyword;
};

/// The first of the searches that does not find the panel; nothing when all do. Before each it is seen that
/// not every search does.
std::string withoutResult(const KdeHost& kde, const std::vector<Search>& searches) {
    for (const auto& [typed, keyword] : searches) {
        kde.search("zyzzyva");
        if (!kde.isFound(keyword, false))
            return "zyzzyva";
        kde.search(typed);
        if (!kde.isFound(keyword))
            return typed;
    }
    return {};
}

} // namespace

class SystemSettingsSearchTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void thePanelIsFoundByWhatItSets() {
        KdeHost kde;
        kde.startAtOverview();
        const std::vector<Search> searches{{"mouse", QStringLiteral("mouse")},
            {"macro", QStringLiteral("macro")}, {"dpi", QStringLiteral("DPI")},
            {"sensi", QStringLiteral("sensitivity")}, {"polling r", QStringLiteral("polling rate")}};
        QCOMPARE(withoutResult(kde, searches), std::string());
        QVERIFY(kde.close());
    }

    void itIsFoundByTheWordsOfTheUsersLanguage() {
        KdeHost kde;
        kde.startAtOverview("de_DE.UTF-8");
        const std::vector<Search> searches{
            {"maus", QStringLiteral("Maus")}, {"abtast", QStringLiteral("Abtastrate")}};
        QCOMPARE(withoutResult(kde, searches), std::string());
        QVERIFY(kde.close());
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsSearchTest)
#include "SystemSettingsSearchTest.moc"
