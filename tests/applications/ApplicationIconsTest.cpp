#include <QApplication>
#include <QImage>
#include <QListView>
#include <QTest>

#include <array>
#include <cstring>
#include <set>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include "applications/ApplicationIcon.h"
#include "applications/ApplicationPanel.h"
#include "support/EnvironmentVariable.h"
#include "support/SessionTestMain.h"
#include "support/TemporaryFolder.h"
#include "support/WindowTools.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// Which files of a folder have been opened.
class OpenedFiles {
  public:
    explicit OpenedFiles(const std::string& folder) : m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        inotify_add_watch(m_descriptor, folder.c_str(), IN_OPEN);
    }
    ~OpenedFiles() { close(m_descriptor); }
    OpenedFiles(const OpenedFiles&) = delete;
    OpenedFiles& operator=(const OpenedFiles&) = delete;

    const std::set<std::string>& names() {
        std::array<char, 65536> events{};
        for (ssize_t size = 0; (size = read(m_descriptor, events.data(), events.size())) > 0;) {
            for (ssize_t at = 0; at < size;) {
                inotify_event event{};
                std::memcpy(&event, events.data() + at, sizeof event);
                if (event.len > 0)
                    m_names.insert(events.data() + at + sizeof event);
                at += static_cast<ssize_t>(sizeof event + event.len);
            }
        }
        return m_names;
    }

  private:
    int m_descriptor;
    std::set<std::string> m_names;
};

} // namespace

class ApplicationIconsTest : public QObject {
    Q_OBJECT

  private slots:
    void onlyIconsOfRowsInSightAreRead() {
        for (int i = 0; i < 1000; ++i) {
            const QString name = QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0'));
            const QString icon = iconPath(name);
            QImage(24, 24, QImage::Format_RGB32).save(icon);
            install(name, icon);
        }
        OpenedFiles opened(m_folder.path("icons"));
        ApplicationPanel panel;
        panel.show();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QVERIFY(QTest::qWaitFor([&] { return !opened.names().empty(); }, kWindowPatienceMs));
        auto* list = outlet<QListView>(&panel, "quorviListApplications");
        QCOMPARE(list->model()->rowCount(), 1000);
        QVERIFY(opened.names().count("000.png") == 1);
        QVERIFY(opened.names().size() < 40);
        list->scrollToBottom();
        QVERIFY(QTest::qWaitFor([&] { return opened.names().count("999.png") == 1; }, kWindowPatienceMs));
        QVERIFY(opened.names().size() < 80);
    }

    void anIconThatCannotBeShownHasAStandIn() {
        std::filesystem::create_directories(m_folder.path("icons"));
        std::filesystem::remove_all(m_folder.path("system"));
        QVERIFY(::mkfifo(m_folder.path("icons/fifo.png").c_str(), 0600) == 0);
        install("fifo", iconPath("fifo"));
        install("missing", iconPath("missing"));
        install("nameless", "");
        install("unknown", "no-theme-has-this");
        ApplicationList list;
        list.setApplications(installedApplications());
        QCOMPARE(list.rowCount(), 4);
        for (int row = 0; row < 4; ++row) {
            const auto icon = list.data(list.index(row), Qt::DecorationRole).value<QIcon>();
            QVERIFY2(!icon.pixmap(24, 24).isNull(),
                qPrintable(list.data(list.index(row), Qt::DisplayRole).toString()));
        }
    }

    void namesWithAnExtensionAreThemeIconsToo() {
        const QString size = QStringLiteral("theme/icons/hicolor/24x24/apps");
        std::filesystem::create_directories(m_folder.path(size.toStdString()));
        m_folder.write("theme/icons/hicolor/index.theme",
            "[Icon Theme]\nName=x\nDirectories=24x24/apps\n[24x24/apps]\nSize=24\nType=Fixed\n");
        QImage red(24, 24, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(QString::fromStdString(m_folder.path(size.toStdString() + "/quorvi-red.png")));
        QIcon::setThemeSearchPaths({QString::fromStdString(m_folder.path("theme/icons"))});
        QIcon::setThemeName("hicolor");
        ApplicationList list;
        list.setApplications({{"a", "a", "a", "quorvi-red", "/a"}, {"b", "b", "b", "quorvi-red.png", "/b"}});
        for (int row = 0; row < 2; ++row) {
            const auto icon = list.data(list.index(row), Qt::DecorationRole).value<QIcon>();
            QCOMPARE(icon.pixmap(24, 24).toImage().pixelColor(12, 12), QColor(Qt::red));
        }
    }

    void anApplicationOfAProfileHasTheIconOfItsEntry() {
        QImage red(24, 24, QImage::Format_RGB32);
        red.fill(Qt::red);
        red.save(iconPath("red"));
        install("org.example.Red", iconPath("red"));
        std::filesystem::create_directories(m_folder.path("system/applications/vendor"));
        install("vendor/red-one", iconPath("red"));
        const auto middle = [](const char* identifier) {
            return iconOfStoredApplication(identifier).pixmap(24, 24).toImage().pixelColor(12, 12);
        };
        QCOMPARE(middle("org.example.Red"), QColor(Qt::red));
        QCOMPARE(middle("vendor-red-one"), QColor(Qt::red));
        const QImage usual = usualApplicationIcon().pixmap(24, 24).toImage();
        for (const char* none :
            {"", "org.example.Gone", "../system/applications/org.example.Red", "x-..-org.example.Red", "-"})
            QVERIFY2(iconOfStoredApplication(none).pixmap(24, 24).toImage() == usual, none);
    }

  private:
    void install(const QString& name, const QString& icon) {
        m_folder.write("system/applications/" + name.toStdString() + ".desktop",
            "[Desktop Entry]\nType=Application\nExec=x\nName=" + name.toStdString() +
                "\nIcon=" + icon.toStdString() + "\n");
    }
    [[nodiscard]] QString iconPath(const QString& name) {
        std::filesystem::create_directories(m_folder.path("icons"));
        return QString::fromStdString(m_folder.path("icons/" + name.toStdString() + ".png"));
    }

    TemporaryFolder m_folder;
    EnvironmentVariable m_home{"XDG_DATA_HOME", m_folder.path("home")};
    EnvironmentVariable m_folders{"XDG_DATA_DIRS", m_folder.path("system")};
};

QUORVI_SESSION_TEST_MAIN(ApplicationIconsTest)
#include "ApplicationIconsTest.moc"
