// The data that a profile stores about its application.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

namespace quorvi {

class DesktopEntryKeys;

/// The four texts by which an application is recognised, as they are stored and compared.
struct ApplicationInformation {
    std::u16string name;       ///< never empty
    std::u16string identifier; ///< empty when it has none
    std::u16string signature;  ///< empty when it has none
    std::u16string executable; ///< the program's file name, without folders; never empty
};

/// The information on the application at the path. Returns std::nullopt if its name or executable is empty,
/// as for a folder without an Info.plist or an unreadable desktop entry.
///
/// A folder is an application bundle: CFBundleName (else the folder's name), CFBundleIdentifier,
/// CFBundleSignature ("????" is none) and CFBundleExecutable of its Info.plist.
///
/// A file "*.desktop" is a desktop entry: its untranslated Name, so that stored data does not depend on the
/// language; its desktop-file id; the program that its Exec starts.
///
/// Anything else is a program: the path's last component is the name and the executable. The file need not
/// exist.
///
/// An ".app" at the end of a name is removed. Reading never blocks, and desktop entries above 1 MiB are not
/// read.
[[nodiscard]] std::optional<ApplicationInformation> applicationInformation(const QString& path);

/// The same for an already read desktop entry, with its desktop-file id.
[[nodiscard]] std::optional<ApplicationInformation> applicationInformation(
    const DesktopEntryKeys& entry, const QString& id);

/// The folders of installed applications, highest priority first: "applications" in XDG_DATA_HOME and in each
/// of XDG_DATA_DIRS (freedesktop.org, XDG Base Directory).
[[nodiscard]] QStringList applicationFolders();

/// The desktop-file id of an entry, without ".desktop": its path below the first folder that contains it,
/// with "-" for "/"; its file name if none does (freedesktop.org, Desktop Entry, "File naming").
[[nodiscard]] QString desktopFileId(const QString& path, const QStringList& folders = applicationFolders());

} // namespace quorvi
