// The user's games, read beside the program: a library may have thousands, on a disk that is asleep.
#pragma once

#include <QThread>

#include <filesystem>
#include <functional>
#include <stop_token>
#include <vector>

#include "applications/games/InstalledGames.h"

namespace quorvi {

/// A thread that reads them once. It belongs to the application and goes by itself, so that nobody has to
/// wait for its end; an application that ends waits for one file at most.
class GamesReader final : public QThread {
    Q_OBJECT

  public:
    /// Begins at once. When the games can be taken, done is called with the reader in the receiver's thread,
    /// as long as there is a receiver. It is connected here since a small library is read before begin()
    /// returns.
    [[nodiscard]] static GamesReader* begin(
        const std::filesystem::path& home, QObject* receiver, const std::function<void(GamesReader*)>& done);
    ~GamesReader() override;

    /// Nobody wants the games any more.
    void stop() { m_stop.request_stop(); }
    /// What has been read; only once it has finished.
    [[nodiscard]] std::vector<games::InstalledGame> takeGames() { return std::move(m_games); }

  private:
    GamesReader(std::filesystem::path home, QObject* application);
    void run() override;

    std::filesystem::path m_home;
    std::stop_source m_stop;
    std::vector<games::InstalledGame> m_games;
};

} // namespace quorvi
