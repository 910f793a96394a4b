// What a profile keeps of the application that it is bound to.
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

/// The information on the application at the path. Nothing when its name or its executable come out empty,
/// as they do for a folder without an Info.plist and a desktop entry that cannot be read.
///
/// A folder is an application bundle: CFBundleName (the folder's name when that is missing),
/// CFBundleIdentifier, CFBundleSignature ("????" is none) and CFBundleExecutable of its Info.plist.
///
/// A file "*.desktop" is a desktop entry: its Name without regard to the user's language, so that what is
/// stored does not depend on it; its desktop-file id; the program that its Exec starts.
///
/// Anything else is a program: the path's last component is the name and the executable. Whether there is
/// such a file is not looked at.
///
/// A name that ends in ".app" goes without that. Files are read without waiting for anybody, and desktop
/// entries above 1 MiB not at all.
[[nodiscard]] std::optional<ApplicationInformation> applicationInformation(const QString& path);

/// The same for a desktop entry that is read already, with its desktop-file id.
[[nodiscard]] std::optional<ApplicationInformation> applicationInformation(
    const DesktopEntryKeys& entry, const QString& id);

/// The folders of installed applications, those that count more first: "applications" in XDG_DATA_HOME and in
/// each of XDG_DATA_DIRS (freedesktop.org, XDG Base Directory).
[[nodiscard]] QStringList applicationFolders();

/// The desktop-file id of an entry, without ".desktop": its path below the first of the folders that it is
/// in, "-" for "/"; its file name when it is in none (freedesktop.org, Desktop Entry, "File naming").
[[nodiscard]] QString desktopFileId(const QString& path, const QStringList& folders = applicationFolders());

} // namespace quorvi
