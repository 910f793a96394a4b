// Performs random actions of a user, the host, the mouse's cable and other programs, one at each turn of the
// event loop, including the loops of sheets, menus and file panels.
#pragma once

#include <QEventLoop>
#include <QObject>

#include <memory>
#include <optional>
#include <random>

#include "proof/Diary.h"
#include "proof/Hands.h"
#include "proof/World.h"

class QFileDialog;
class QMenu;

namespace quorvi::test {

class Monkey : public QObject {
  public:
    Monkey(std::uint32_t seed, Diary& diary) : m_random(seed), m_diary(diary) {}

    /// Opens a panel, does that many actions with it and closes it. What went wrong; empty when nothing did.
    [[nodiscard]] QString use(int actions);

    /// What the toolkit complained about: none of it is usual.
    static QStringList gWarnings;

    [[nodiscard]] int done() const { return m_done; }
    [[nodiscard]] int saves() const { return m_saves; }

  private:
    void turn();
    void scheduleTurn(int milliseconds = 0);
    void check();
    void fail(const QString& complaint);
    void act();
    void leaveEverything();

    // Each does one action and gives its name (MonkeyActions.cpp).
    [[nodiscard]] QString actAround();
    [[nodiscard]] QString actInMenu(QMenu& menu);
    [[nodiscard]] QString actInFilePanel(QFileDialog& panel);
    [[nodiscard]] QString actWhileRecording();
    [[nodiscard]] QString actInWindow(QWidget& window);
    [[nodiscard]] QString actOn(QWidget& widget);
    [[nodiscard]] QString pressSomeKey();
    [[nodiscard]] QString finishEdit();
    [[nodiscard]] QString hideAndCheck();

    [[nodiscard]] int below(int count) { return int(m_random() % std::uint32_t(count)); }
    [[nodiscard]] bool oneIn(int count) { return below(count) == 0; }
    [[nodiscard]] QPoint somePlaceIn(QWidget& widget);
    [[nodiscard]] Qt::KeyboardModifiers someModifiers();
    template <typename Items>
    [[nodiscard]] auto oneOf(const Items& items) {
        return items[std::size_t(below(int(std::size(items))))];
    }

    std::mt19937 m_random;
    Diary& m_diary;
    Hands m_hands;
    std::unique_ptr<World> m_world;
    QEventLoop* m_loop = nullptr; ///< the one that everything else runs in
    int m_level = 0;              ///< how deep that one is
    QString m_complaint;
    int m_done = 0;
    int m_end = 0;
    int m_saves = 0;
    int m_checkedSaves = 0;
    bool m_mayDangle = false; ///< a profile was imported, with assignments to what its old home had
};

} // namespace quorvi::test
