// The applications that the desktop's own menus offer.
#pragma once

#include <QString>

#include <vector>

namespace quorvi {

struct InstalledApplication {
    QString id;          ///< its desktop-file id, without ".desktop"
    QString name;        ///< in the user's language, on one line
    QString searchTexts; ///< what it may be looked for by: its names and its program, a line each
    QString icon;        ///< a name in the icon theme or an absolute path; empty when it has none
    QString path;        ///< of its desktop entry
};

/// The applications in the "applications" folders of XDG_DATA_HOME and XDG_DATA_DIRS, in no useful order. Of
/// equal ids the first folder's entry counts, whatever it says. Left out are those that the desktop hides
/// (Hidden, NoDisplay, a TryExec that is not there, OnlyShowIn and NotShowIn against XDG_CURRENT_DESKTOP) and
/// those that applicationInformation() knows nothing of, which could not be recognised. Reads every entry
/// there is: about 20 ms for a thousand.
[[nodiscard]] std::vector<InstalledApplication> installedApplications();

} // namespace quorvi
