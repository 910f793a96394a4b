// What a user types into the search of System Settings finds the panel.

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

/// Of the searches, those that do not find the panel, or find it still when something else is searched.
QStringList withoutResult(KdeHost& kde, const std::vector<Search>& searches) {
    QStringList wrong;
    for (const Search& search : searches) {
        kde.search("zyzzyva");
        const bool goes = kde.isFound(search.keyword, false);
        kde.search(search.typed);
        if (!goes || !kde.isFound(search.keyword))
            wrong << QString::fromStdString(search.typed);
    }
    return wrong;
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
        QCOMPARE(withoutResult(kde, searches), QStringList());
        QVERIFY(kde.close());
    }

    void itIsFoundByTheWordsOfTheUsersLanguage() {
        KdeHost kde;
        kde.startAtOverview("de_DE.UTF-8");
        const std::vector<Search> searches{
            {"maus", QStringLiteral("Maus")}, {"abtast", QStringLiteral("Abtastrate")}};
        QCOMPARE(withoutResult(kde, searches), QStringList());
        QVERIFY(kde.close());
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsSearchTest)
#include "SystemSettingsSearchTest.moc"
