#include "platform/Workspace.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "platform/Bundle.h"
#include "platform/ProcessEnd.h"

namespace quorvi {

DesktopWorkspace::DesktopWorkspace() = default;

DesktopWorkspace::~DesktopWorkspace() = default;

bool DesktopWorkspace::launchApplication(const QString& bundlePath, std::function<void()> ended) {
    QProcess process;
    process.setProgram(QString::fromStdString(Bundle(bundlePath.toStdString()).executablePath()));
    // It must not hold the terminal or pipe of the program that started it.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setWorkingDirectory(QStringLiteral("/"));
    qint64 id = 0;
    if (!process.startDetached(&id))
        return false;
    m_launched = std::make_unique<ProcessEnd>(static_cast<pid_t>(id), std::move(ended));
    return true;
}

void DesktopWorkspace::openUrl(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

void DesktopWorkspace::openFile(const QString& path) {
    if (!path.isEmpty())
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace quorvi
