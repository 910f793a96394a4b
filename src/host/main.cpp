// quorvi-settings: shows preference panes in its own window.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QFontDatabase>

#include <cstdio>
#include <thread>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <fontconfig/fontconfig.h>

#include "host/HostWindow.h"
#include "host/TerminationSignals.h"
#include "host/WindowState.h"

namespace {

/// The panel's bundle next to this program, in the build folder or the installation.
QStringList defaultBundles() {
    const QString programs = QCoreApplication::applicationDirPath();
    for (const char* place : {"/../KyvarQuorvi.prefPane", "/../lib/kyvar-quorvi/KyvarQuorvi.prefPane"})
        if (QFileInfo::exists(programs + QLatin1String(place)))
            return {QFileInfo(programs + QLatin1String(place)).canonicalFilePath()};
    return {};
}

/// The command line's arguments.
struct Given {
    QStringList bundles; ///< folders, and paths that do not exist
    QStringList files;
};

Given givenIn(const QStringList& arguments) {
    Given given;
    for (const QString& path : arguments)
        (QFileInfo(path).isFile() ? given.files : given.bundles) << path;
    return given;
}

} // namespace

int main(int argc, char** argv) {
#ifdef M_ARENA_MAX
    // The threads that start with the program allocate little at the same time. Memory of their own for each
    // of them, which stays when they end, is 0.6 MiB more.
    mallopt(M_ARENA_MAX, 1);
#endif
    // Reading the fonts' settings takes as long as connecting to the display, and they are first needed to
    // measure a text: this saves 9 ms on this thread. Wait for it, because two threads would both read them.
    std::jthread fontSettings([] { FcInit(); });
    QApplication application(argc, argv);
    fontSettings.join();
    QApplication::setApplicationName(QStringLiteral("quorvi-settings"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVI_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("com.kyvar.quorvi-settings"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows preference panes."));
    parser.addPositionalArgument(QStringLiteral("bundle"), QStringLiteral("Preference-pane bundles to show."),
        QStringLiteral("[BUNDLE...]"));
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A file for the first pane to open."),
        QStringLiteral("[FILE]"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    // Likewise the list of fonts (8 ms), while the panel is made; Qt lets one thread build it and the other
    // wait.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const std::jthread fonts([] { (void)QFontDatabase::families(); });
#endif

    const Given given = givenIn(parser.positionalArguments());
    if (given.files.size() > 1) {
        std::fprintf(stderr, "quorvi-settings: one file at a time\n");
        return 1;
    }
    std::vector<std::unique_ptr<quorvi::LoadedPane>> panes;
    for (const QString& path : given.bundles.isEmpty() ? defaultBundles() : given.bundles) {
        QString error;
        auto pane = quorvi::LoadedPane::load(path, error);
        if (!pane) {
            std::fprintf(stderr, "quorvi-settings: %s\n", qPrintable(error));
            return 1;
        }
        panes.push_back(std::move(pane));
    }
    for (const QString& file : given.files) {
        if (panes.empty() || panes.front()->opens(file))
            continue;
        std::fprintf(stderr, "quorvi-settings: %s is not a preference pane, nor a file that it opens\n",
            qPrintable(file));
        return 1;
    }
    if (panes.empty()) {
        std::fprintf(stderr, "quorvi-settings: no preference pane found\n");
        return 1;
    }
    quorvi::quitOnTerminationSignals();
    quorvi::HostWindow window(std::move(panes));
    window.rememberIn(quorvi::windowStateFile());
    window.show();
    for (const QString& file : given.files)
        window.openFile(QFileInfo(file).absoluteFilePath());
    return QApplication::exec();
}
