#include "applications/ApplicationIcon.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

#include <array>

#include "applications/ApplicationInformation.h"
#include "applications/DesktopEntryKeys.h"

namespace quorvi {

namespace {

/// In old entries, names with these endings are theme icons too.
constexpr std::array kImageExtensions{".png", ".svg", ".xpm"};

QString themeName(QString icon) {
    for (const char* extension : kImageExtensions)
        if (icon.endsWith(QLatin1String(extension)))
            icon.chop(4);
    return icon;
}

/// The entry's file; empty when no folder has one. An entry in a subfolder has a "-" for each "/" in its
/// identifier.
QString entryOf(QString identifier) {
    if (identifier.isEmpty() || identifier.contains(QLatin1Char('/')) ||
        identifier.contains(QLatin1String("..")))
        return {};
    const QStringList folders = applicationFolders();
    for (;;) {
        for (const QString& folder : folders) {
            QString path = folder + QLatin1Char('/') + identifier + QLatin1String(".desktop");
            if (QFileInfo::exists(path))
                return path;
        }
        const auto dash = identifier.indexOf(QLatin1Char('-'));
        if (dash < 0)
            return {};
        identifier[dash] = QLatin1Char('/');
    }
}

} // namespace

QIcon iconNamed(const QString& icon) {
    if (icon.isEmpty())
        return {};
    if (!icon.startsWith(QLatin1Char('/')))
        return QIcon::fromTheme(themeName(icon));
    return QFileInfo(icon).isFile() ? QIcon(icon) : QIcon(); // reading a FIFO would never end
}

QIcon usualApplicationIcon() {
    const QIcon usual = QIcon::fromTheme(QStringLiteral("application-x-executable"));
    return usual.isNull() ? QApplication::style()->standardIcon(QStyle::SP_FileIcon) : usual;
}

QIcon iconOfStoredApplication(const QString& identifier) {
    const QString path = entryOf(identifier);
    if (path.isEmpty())
        return usualApplicationIcon();
    const std::string text = desktopEntryFileText(path.toStdString());
    const QIcon icon =
        iconNamed(QString::fromStdString(DesktopEntryKeys(text).value("Icon").value_or(std::string())));
    return icon.isNull() ? usualApplicationIcon() : icon;
}

} // namespace quorvi
