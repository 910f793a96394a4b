// The module alone, in KDE's program for single modules.

#include <QDir>
#include <QJsonObject>
#include <QPluginLoader>
#include <QTest>

#include "host/kde/KdeHost.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

/// The line in which the program lists the module.
QString listed(const KdeHost& kde, const std::string& locale) {
    const auto list = kde.run({QUORVI_KCMSHELL, "--list"}, locale);
    for (const QString& line : QString::fromStdString(list.output).split(QLatin1Char('\n')))
        if (line.startsWith(QString::fromStdString(kModule)))
            return line.simplified();
    return {};
}

} // namespace

class KcmshellTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void theModuleIsListedInTheLanguageOfTheUser() {
        const KdeHost kde;
        QCOMPARE(listed(kde, "C.UTF-8"),
            QStringLiteral(
                "kcm_kyvar_quorvi - Configure the buttons, macros, sensitivity and lights of your mouse"));
        QCOMPARE(listed(kde, "de_DE.UTF-8"),
            QStringLiteral(
                "kcm_kyvar_quorvi - Tasten, Makros, Empfindlichkeit und Beleuchtung der Maus einstellen"));
    }

    void itHasSearchWordsInEveryLanguageOfThePanel() {
        const auto metadata = QPluginLoader(QStringLiteral(QUORVI_MODULE)).metaData();
        const auto words = metadata.value(QStringLiteral("MetaData")).toObject();
        const QDir resources(QStringLiteral(QUORVI_BUNDLE "/Contents/Resources"));
        const auto languages = resources.entryList({QStringLiteral("*.lproj")});
        QCOMPARE(languages.size(), 10);
        for (QString language : languages) {
            language.chop(int(qstrlen(".lproj")));
            const auto key = language == QLatin1String("en")
                                 ? QStringLiteral("X-KDE-Keywords")
                                 : QStringLiteral("X-KDE-Keywords[%1]").arg(language);
            const auto list = words.value(key).toString().split(QLatin1Char(','));
            QVERIFY2(list.size() >= 5, qPrintable(key));
        }
        QVERIFY(
            words.value(QStringLiteral("X-KDE-Keywords[de]")).toString().contains(QStringLiteral("Maus")));
    }

    void itOpensWithoutButtonsForWhatIsSavedAtOnceAndCloses() {
        KdeHost kde;
        kde.start({QUORVI_KCMSHELL, kModule});
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.panel.told("1"), std::string("1"));
        for (const char* button : {"Apply", "OK", "Reset", "Defaults"})
            QVERIFY2(!kde.shows(QStringLiteral("push button '%1'").arg(QLatin1String(button))), button);
        QVERIFY(kde.close());
        QCOMPARE(kde.panel.toldAtLast(), std::string("10"));
    }

    void aPageThatIsHiddenAndShownAgainIsTheSame() {
        KdeHost kde;
        kde.start({QUORVI_KCMSHELL, kOtherModule, kModule});
        kde.activate();
        kde.click(QStringLiteral("list item 'Kyvar Quorvi'"));
        QVERIFY(kde.showsPanel());
        kde.click(QStringLiteral("page tab 'Device'"));
        kde.click(QStringLiteral("list item '%1'").arg(kOtherTitle));
        QCOMPARE(kde.panel.told("10"), std::string("10"));
        kde.click(QStringLiteral("list item 'Kyvar Quorvi'"));
        QCOMPARE(kde.panel.told("101"), std::string("101"));
        QVERIFY(!kde.thing(QStringLiteral("check box 'Wheel light'")).isNull());
        QVERIFY(kde.close());
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
    }

    void helpIsThePanelsOwn() {
        KdeHost kde;
        kde.start({QUORVI_KCMSHELL, kModule});
        QVERIFY(kde.showsPanel());
        kde.click(QStringLiteral("push button 'Help'"));
        QVERIFY2(kde.opensOwnHelp(), kde.opened().c_str());
        QVERIFY(kde.close());
    }
};

QUORVI_SESSION_TEST_MAIN(KcmshellTest)
#include "KcmshellTest.moc"
