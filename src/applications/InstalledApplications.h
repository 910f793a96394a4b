// The applications that the desktop's own menus offer, and games.
#pragma once

#include <QString>

#include <optional>
#include <vector>

#include "applications/ApplicationInformation.h"
#include "applications/games/InstalledGames.h"

namespace quorvi {

struct InstalledApplication {
    QString id;            ///< its desktop-file id, without ".desktop"; of a game its identifier
    QString name;          ///< in the user's language, on one line
    QString searchTexts;   ///< what it may be looked for by: its names and its program, a line each
    QString icon;          ///< a name in the icon theme or an absolute path; empty when it has none
    QString path;          ///< of its desktop entry; empty for a game
    QString game = {};     ///< identifier of the game that the entry starts; empty for none
    QString launcher = {}; ///< of a game: what starts it, "Steam"; empty for an application
    std::optional<ApplicationInformation> information = {}; ///< of a game
};

/// The applications in the "applications" folders of XDG_DATA_HOME and XDG_DATA_DIRS, in no useful order. Of
/// equal ids the first folder's entry counts, whatever it says. Left out are those that the desktop hides
/// (Hidden, NoDisplay, a TryExec that is not there, OnlyShowIn and NotShowIn against XDG_CURRENT_DESKTOP) and
/// those that applicationInformation() knows nothing of, which could not be recognised. Reads every entry
/// there is: about 20 ms for a thousand.
[[nodiscard]] std::vector<InstalledApplication> installedApplications();

/// A game as a row of the same list.
[[nodiscard]] InstalledApplication applicationOfGame(const games::InstalledGame& game);

} // namespace quorvi
