// What the settings application remembers of its window: a file of three numbers in the user's state folder.
#pragma once

#include <QSize>

#include <filesystem>
#include <optional>

namespace quorvi {

struct WindowState {
    QSize size;  ///< in logical pixels
    int tab = 0; ///< of the pane that is shown, from 0
};

/// "kyvar-quorvi/window" below $XDG_STATE_HOME, when that is an absolute path, else below ~/.local/state;
/// empty when there is no home folder either.
[[nodiscard]] std::filesystem::path windowStateFile();

/// Nothing for a file that is not there, cannot be read or does not hold what keepWindowState() writes.
[[nodiscard]] std::optional<WindowState> keptWindowState(const std::filesystem::path& file);

/// Makes the folder too. A state that cannot be kept is not worth a word: the next window opens as the first
/// one did.
void keepWindowState(const std::filesystem::path& file, const WindowState& state);

} // namespace quorvi
