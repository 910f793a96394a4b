#include "applications/ApplicationInformation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "applications/DesktopEntryKeys.h"
#include "applications/ExecKey.h"
#include "applications/PathName.h"
#include "base/Unicode.h"
#include "platform/Bundle.h"

namespace quorvi {

namespace {

constexpr std::string_view kEntryExtension = ".desktop";
constexpr std::u16string_view kNoSignature = u"????";

ApplicationInformation informationOnBundle(const std::string& path) {
    const Bundle bundle(path);
    const auto text = [&](const char* key) { return bundle.infoString(key); };
    ApplicationInformation information;
    information.name = text("CFBundleName").value_or(toUtf16(lastComponent(path)));
    information.identifier = text("CFBundleIdentifier").value_or(u"");
    information.signature = text("CFBundleSignature").value_or(u"");
    information.executable = text("CFBundleExecutable").value_or(u"");
    return information;
}

ApplicationInformation informationOnProgram(const std::string& path) {
    ApplicationInformation information;
    information.name = toUtf16(lastComponent(path));
    information.executable = information.name;
    return information;
}

std::optional<ApplicationInformation> usable(ApplicationInformation information) {
    information.name = withoutApplicationExtension(std::move(information.name));
    if (information.signature == kNoSignature)
        information.signature.clear();
    if (information.name.empty() || information.executable.empty())
        return std::nullopt;
    return information;
}

} // namespace

std::optional<ApplicationInformation> applicationInformation(const QString& path) {
    const std::string bytes = QFile::encodeName(path).toStdString();
    if (QFileInfo(path).isDir())
        return usable(informationOnBundle(bytes));
    if (!bytes.ends_with(kEntryExtension))
        return usable(informationOnProgram(bytes));
    const std::string text = desktopEntryFileText(bytes);
    return applicationInformation(DesktopEntryKeys(text), desktopFileId(path));
}

std::optional<ApplicationInformation> applicationInformation(
    const DesktopEntryKeys& entry, const QString& id) {
    ApplicationInformation information;
    information.name = toUtf16(entry.value("Name").value_or(""));
    information.identifier = id.toStdU16String();
    information.executable = toUtf16(execProgramName(entry.value("Exec").value_or("")));
    return usable(std::move(information));
}

QStringList applicationFolders() {
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

QString desktopFileId(const QString& path, const QStringList& folders) {
    const QString file = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QString id = QFileInfo(file).fileName();
    for (const QString& folder : folders) {
        if (const QString start = QDir::cleanPath(folder) + QLatin1Char('/'); file.startsWith(start)) {
            id = file.mid(start.size()).replace(QLatin1Char('/'), QLatin1Char('-'));
            break;
        }
    }
    if (const QLatin1String extension(kEntryExtension.data()); id.endsWith(extension))
        id.chop(extension.size());
    return id;
}

} // namespace quorvi
