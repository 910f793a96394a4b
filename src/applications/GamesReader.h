// Reads the user's games in a thread: a library may have thousands, on a sleeping disk.
#pragma once

#include <QThread>

#include <filesystem>
#include <functional>
#include <stop_token>
#include <vector>

#include "applications/games/InstalledGames.h"

namespace quorvi {

/// A thread that reads them once. The application owns it and it deletes itself, so no one waits for it; an
/// ending application waits for one file at most.
class GamesReader final : public QThread {
    Q_OBJECT

  public:
    /// Starts at once. When the games are ready, calls done with the reader in the receiver's thread, if the
    /// receiver still exists. Connects it here, because a small library is read before begin() returns.
    [[nodiscard]] static GamesReader* begin(
        const std::filesystem::path& home, QObject* receiver, const std::function<void(GamesReader*)>& done);
    ~GamesReader() override;

    /// Stops reading: the games are not needed any more.
    void stop() { m_stop.request_stop(); }
    /// The games. Call this only when it has finished.
    [[nodiscard]] std::vector<games::InstalledGame> takeGames() { return std::move(m_games); }

  private:
    GamesReader(std::filesystem::path home, QObject* application);
    void run() override;

    std::filesystem::path m_home;
    std::stop_source m_stop;
    std::vector<games::InstalledGame> m_games;
};

} // namespace quorvi
