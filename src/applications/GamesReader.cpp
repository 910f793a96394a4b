#include "applications/GamesReader.h"

#include <QCoreApplication>

#include <utility>

namespace quorvi {

GamesReader* GamesReader::begin(
    const std::filesystem::path& home, QObject* receiver, const std::function<void(GamesReader*)>& done) {
    auto* const reader = new GamesReader(home, QCoreApplication::instance());
    connect(reader, &QThread::finished, receiver, [reader, done] { done(reader); });
    connect(reader, &QThread::finished, reader, &QObject::deleteLater);
    reader->start(LowPriority);
    return reader;
}

GamesReader::GamesReader(std::filesystem::path home, QObject* application)
    : QThread(application), m_home(std::move(home)) {}

GamesReader::~GamesReader() {
    stop();
    wait();
}

void GamesReader::run() {
    m_games = games::installedGames(m_home, m_stop.get_token());
}

} // namespace quorvi
