#include "applications/InstalledApplications.h"

#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <string>

#include "applications/ApplicationInformation.h"
#include "applications/DesktopEntryKeys.h"
#include "applications/games/GameIdentifiers.h"
#include "base/Unicode.h"
#include "platform/Languages.h"

namespace quorvi {

namespace {

QString textOf(const std::optional<std::string>& value) {
    return value ? QString::fromStdString(*value) : QString();
}

/// The common data of all entries in one reading.
struct Surroundings {
    std::vector<std::string> locales = preferredLocales();
    QStringList desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts);
};

/// The first of the desktop's names that either list has decides (freedesktop.org, Desktop Entry,
/// "Recognized desktop entry keys").
bool isForDesktop(const DesktopEntryKeys& keys, const QStringList& desktops) {
    const auto onlyShowIn = keys.list("OnlyShowIn");
    const auto notShowIn = keys.list("NotShowIn");
    const auto has = [](const std::vector<std::string>& list, const std::string& name) {
        return std::find(list.begin(), list.end(), name) != list.end();
    };
    for (const QString& desktop : desktops) {
        const std::string name = desktop.toStdString();
        if (has(onlyShowIn, name))
            return true;
        if (has(notShowIn, name))
            return false;
    }
    return onlyShowIn.empty();
}

bool isThere(const QString& program) {
    return program.isEmpty() || !QStandardPaths::findExecutable(program).isEmpty();
}

bool isShown(const DesktopEntryKeys& keys, const Surroundings& surroundings) {
    return keys.value("Type") == "Application" && !keys.boolean("Hidden") && !keys.boolean("NoDisplay") &&
           isForDesktop(keys, surroundings.desktops) && isThere(textOf(keys.value("TryExec")));
}

/// The identifier of the game that an entry starts; empty for none.
QString gameOf(const DesktopEntryKeys& keys) {
    const std::string exec = keys.value("Exec").value_or("");
    const auto number = games::steamNumberOfLink(exec);
    return number.empty() ? QString() : QString::fromStdString(games::steamIdentifier(number));
}

/// The application of an entry, unless it is hidden.
std::optional<InstalledApplication> readApplication(
    const QString& path, const QString& id, const Surroundings& surroundings) {
    const std::string text = desktopEntryFileText(QFile::encodeName(path).toStdString());
    const DesktopEntryKeys keys(text);
    const auto information = applicationInformation(keys, id);
    if (!information || !isShown(keys, surroundings))
        return std::nullopt;
    const QString untranslated = QString::fromStdU16String(information->name).simplified();
    QString name = textOf(keys.localizedValue("Name", surroundings.locales)).simplified();
    if (name.isEmpty())
        name = untranslated;
    const QStringList searchTexts{name, untranslated, QString::fromStdU16String(information->executable)};
    return InstalledApplication{id, name, searchTexts.join(QLatin1Char('\n')),
        textOf(keys.localizedValue("Icon", surroundings.locales)), path, gameOf(keys), {}};
}

/// The paths of a folder's entries, those of its subfolders included, in the order of their names.
QStringList entriesIn(const QString& folder) {
    QStringList paths;
    for (QDirIterator entry(folder, {QStringLiteral("*.desktop")}, QDir::Files | QDir::Hidden | QDir::System,
             QDirIterator::Subdirectories);
         entry.hasNext();)
        paths.append(entry.next());
    paths.sort();
    return paths;
}

} // namespace

std::vector<InstalledApplication> installedApplications() {
    const Surroundings surroundings;
    const QStringList folders = applicationFolders();
    std::vector<InstalledApplication> applications;
    QSet<QString> ids;
    for (const QString& folder : folders) {
        for (const QString& path : entriesIn(folder)) {
            const QString id = desktopFileId(path, folders);
            if (ids.contains(id))
                continue;
            ids.insert(id);
            if (auto application = readApplication(path, id, surroundings))
                applications.push_back(std::move(*application));
        }
    }
    return applications;
}

InstalledApplication applicationOfGame(const games::InstalledGame& game) {
    const QString name = QString::fromStdString(game.name).simplified();
    const QString executable = QString::fromStdString(game.executable);
    const QString launcher = QString::fromStdString(game.launcher);
    const QString identifier = QString::fromStdString(game.identifier);
    const ApplicationInformation information{
        toUtf16(game.name), toUtf16(game.identifier), {}, toUtf16(game.executable)};
    return {identifier, name, QStringList{name, executable, launcher}.join(QLatin1Char('\n')),
        QFile::decodeName(game.icon.c_str()), {}, identifier, launcher, information};
}

} // namespace quorvi
