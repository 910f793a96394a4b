// Installed games in the application panel, next to the applications.
#include <QImage>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QThread>

#include <filesystem>
#include <vector>

#include "applications/ApplicationPanelFixture.h"
#include "applications/games/SteamLibrary.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

class GamesInPanelTest : public ApplicationPanelFixture {
    Q_OBJECT

  private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void gamesStandBetweenTheApplicationsByTheirNames() {
        QLocale::setDefault(QLocale(QLocale::German));
        for (const char* name : {"Antlers", "byway", "Yards"})
            addGame(name);
        open();
        const QStringList all{
            "Antlers", "Äpfel", "Byte Editor", "byway", "calculator", "Terminal", "Yards", "Zebra"};
        QTRY_COMPARE(names(), all);
        QCOMPARE(rowNamed("byway").data(ApplicationList::LauncherRole).toString(), QString("Steam"));
        QCOMPARE(rowNamed("byway").data(Qt::AccessibleTextRole).toString(), QString("byway (game, Steam)"));
        QCOMPARE(rowNamed("Zebra").data(ApplicationList::LauncherRole).toString(), QString());
        QCOMPARE(rowNamed("Zebra").data(Qt::AccessibleTextRole).toString(), QString());
        QVERIFY(outlet<QLabel>(m_panel.get(), "textReadingGames")->isHidden());
    }

    void theListIsThereBeforeTheGamesAreRead() {
        for (int i = 0; i < 1000; ++i)
            addGame(QStringLiteral("Game %1").arg(i));
        QCOMPARE(names(), QStringList());
        m_panel->show();
        QCOMPARE(names().size(), 5);
        QTRY_COMPARE(names().size(), 1005);
    }

    void aSlowLibraryIsSpokenOf() {
        // Some hundred megabytes are to be read, of which nothing is on the disk.
        addGame("Antlers");
        std::vector<std::filesystem::path> slow;
        for (int i = 0; i < 50; ++i) {
            const auto& file =
                slow.emplace_back(library() / "steamapps" / ("appmanifest_" + std::to_string(i) + ".acf"));
            writeFile(file, "x");
            std::filesystem::resize_file(file, 16U << 20U);
        }
        m_panel->show();
        const auto* label = outlet<QLabel>(m_panel.get(), "textReadingGames");
        QTRY_VERIFY(label->isVisible());
        QVERIFY(names().size() == 5);
        clickRow("Zebra"); // the sheet answers meanwhile
        QCOMPARE(selectedName(), QString("Zebra"));
        m_search->setText("nothing is called so");
        QCOMPARE(outlet<QLabel>(m_panel.get(), "textNoApplication")->text(), QString("Looking for games…"));
        m_search->clear();
        // Sanitizers read them for more than a minute.
        for (const auto& file : slow)
            std::filesystem::remove(file);
        QTRY_COMPARE_WITH_TIMEOUT(names().size(), 6, 6 * kWindowPatienceMs);
        QVERIFY(label->isHidden());
    }

    void aGameIsChosenWithAllThatAProfileKeepsOfIt() {
        std::filesystem::create_directories(m_folder->path(".local/share/lutris/games"));
        m_folder->write(
            ".local/share/lutris/games/drive-to-win-1.yml", "game:\n  exe: /g/Drive.exe\nname: Drive\n");
        open();
        QTRY_COMPARE(names().size(), 6);
        QTest::keyClicks(m_search, "dri");
        QTest::keyClick(m_search, Qt::Key_Return);
        QCOMPARE(m_panel->result(), int(QDialog::Accepted));
        const auto chosen = m_panel->chosen();
        QVERIFY(chosen);
        QVERIFY(chosen->name == u"Drive");
        QVERIFY(chosen->identifier == u"lutris-drive-to-win");
        QVERIFY(chosen->signature.empty());
        QVERIFY(chosen->executable == u"Drive.exe");
        QCOMPARE(m_panel->chosenPath(), QString());
    }

    void anApplicationThatIsChosenAfterAGameIsThatApplication() {
        addGame("Antlers");
        open();
        QTRY_COMPARE(names().size(), 6);
        QTest::keyClicks(m_search, "antlers");
        QTest::keyClick(m_search, Qt::Key_Return);
        QVERIFY(m_panel->chosen()->name == u"Antlers");
        waitUntilActive(m_window.get());
        open();
        QVERIFY(!m_panel->chosen());
        QTest::keyClicks(m_search, "zebra");
        QTest::keyClick(m_search, Qt::Key_Return);
        QVERIFY(m_panel->chosen()->name == u"Zebra");
    }

    void gamesAreFoundByWhatStartsThem() {
        addGame("Antlers");
        addGame("Yards");
        open();
        QTRY_COMPARE(names().size(), 7);
        QTest::keyClicks(m_search, "steam");
        QCOMPARE(names(), QStringList({"Antlers", "Yards"}));
    }

    void whatIsSelectedStaysWhenTheGamesCome() {
        addGame("Antlers");
        m_panel->show();
        m_list->setCurrentIndex(rowNamed("Zebra"));
        QTRY_COMPARE(names().size(), 6);
        QCOMPARE(selectedName(), QString("Zebra"));
        QVERIFY(m_choose->isEnabled());
    }

    void aGameThatWasLookedForBeforeItWasReadIsSelectedThen() {
        addGame("Antlers");
        m_panel->show();
        m_search->setText("antlers");
        QCOMPARE(selectedName(), QString());
        QTRY_COMPARE(selectedName(), QString("Antlers"));
    }

    void anEntryThatOnlyStartsAGameGivesWayToIt() {
        const QString icon = QString::fromStdString(m_folder->path("entry.png"));
        QImage red(24, 24, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(icon);
        addSteamGame(library(), "440", "Hats");
        install("Hats", "Name=Hats\nExec=steam steam://rungameid/440\nIcon=" + icon + "\n");
        install("Other", "Name=Not here\nExec=steam steam://rungameid/441\n");
        m_panel->show();
        QCOMPARE(names().size(), 7);
        m_list->setCurrentIndex(rowNamed("Hats"));
        QTRY_COMPARE(rowNamed("Hats").data(ApplicationList::LauncherRole).toString(), QString("Steam"));
        QCOMPARE(names().size(), 7);
        QCOMPARE(names().count("Hats"), 1);
        QCOMPARE(selectedName(), QString("Hats"));
        const auto shown = rowNamed("Hats").data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(shown.pixmap(24, 24).toImage().pixelColor(12, 12), QColor(Qt::red));
    }

    void aGameHasItsPictureInTheHeightOfARow() {
        std::filesystem::create_directories(library() / "appcache/librarycache");
        QImage poster(600, 900, QImage::Format_RGB32);
        poster.fill(Qt::blue);
        poster.save(QString::fromStdString((library() / "appcache/librarycache/440_icon.jpg").string()));
        addSteamGame(library(), "440", "Hats");
        open();
        QTRY_COMPARE(names().size(), 6);
        const auto icon = rowNamed("Hats").data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(icon.availableSizes().value(0), QSize(85, 128));
        QVERIFY(icon.pixmap(24, 24).toImage().pixelColor(5, 12).blue() > 200);
    }

    void whoClosesThePanelWaitsForNoGame() {
        for (int i = 0; i < 3000; ++i)
            addGame(QStringLiteral("Game %1").arg(i));
        for (int i = 0; i < 3; ++i) {
            m_panel->show();
            m_panel->reject();
        }
        m_panel->show();
        m_panel.reset();
        // Nobody has waited for those who read them; they go by themselves.
        QCOMPARE(QCoreApplication::instance()->findChildren<QThread*>().size(), 4);
        QTRY_VERIFY(QCoreApplication::instance()->findChildren<QThread*>().isEmpty());
    }

    void theLauncherStandsAtTheEndOfTheRow_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }
    void theLauncherStandsAtTheEndOfTheRow() {
        QFETCH(Qt::LayoutDirection, direction);
        addGame(QString(70, 'W')); // more than fits
        m_panel->setLayoutDirection(direction);
        open();
        QTRY_COMPARE(names().size(), 6);
        const QRect row = m_list->visualRect(rowNamed(QString(70, 'W')));
        const QImage drawn = m_list->viewport()->grab(row).toImage();
        const QImage without = [&] {
            m_list->setItemDelegate(new QStyledItemDelegate(m_list));
            return m_list->viewport()->grab(row).toImage();
        }();
        QVERIFY(drawn != without);
        // The name ends before the launcher's begins: there is a gap without a dot of a letter.
        const int launcher = m_list->fontMetrics().horizontalAdvance("Steam");
        const int gapAt = direction == Qt::LeftToRight ? row.width() - launcher - 12 : launcher + 11;
        for (int y = 0; y < drawn.height(); ++y)
            QCOMPARE(drawn.pixel(gapAt, y), drawn.pixel(gapAt, 0));
    }

  private:
    [[nodiscard]] std::filesystem::path library() const { return m_folder->path(".local/share/Steam"); }
    void addGame(const QString& name) {
        addSteamGame(library(), std::to_string(1000 + m_games++), name.toStdString());
    }
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (int row = 0; row < m_list->model()->rowCount(); ++row)
            names << m_list->model()->index(row, 0).data().toString();
        return names;
    }

    int m_games = 0;
};

QUORVI_SESSION_TEST_MAIN(GamesInPanelTest)
#include "GamesInPanelTest.moc"
