#include "platform/Workspace.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "platform/Bundle.h"

namespace quorvi {

void DesktopWorkspace::launchApplication(const QString& bundlePath) {
    QProcess process;
    process.setProgram(QString::fromStdString(Bundle(bundlePath.toStdString()).executablePath()));
    // It must not keep the terminal or pipe of the program that happened to start it.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setWorkingDirectory(QStringLiteral("/"));
    process.startDetached();
}

void DesktopWorkspace::openUrl(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

void DesktopWorkspace::openFile(const QString& path) {
    if (!path.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace quorvi
