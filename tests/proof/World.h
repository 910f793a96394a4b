// The panel's environment: mice are plugged in and out, the host hides and shows the panel, other windows
// take the focus, other programs change the settings file, also while the panel saves it, the disk fills up.
#pragma once

#include <future>
#include <random>

#include "pane/PaneFixture.h"
#include "proof/SaveWitness.h"

namespace quorvi::test {

class World {
  public:
    World();

    PaneFixture& panel() { return m_fixture; }
    [[nodiscard]] bool isShown() const { return m_shown; }

    /// Sends the shown panel a device list, and says when it was handled; never blocks.
    void sendDeviceList(std::uint16_t count);
    [[nodiscard]] bool isListOnItsWay();

    void hide();
    void show();
    void activateOtherWindow();
    void activatePanel() { m_fixture.window->activateWindow(); }
    void fillDisk(int saves) { m_witness.failing = saves; }

    /// Another program changes the settings file: to another configuration, to one that is no good, or to
    /// none. What it was, in a word.
    QString changeFile(std::mt19937& random);

    /// The paths of files that can be imported, and of some that cannot; one that an export may go to.
    [[nodiscard]] QString someFile(const QString& suffix, std::mt19937& random) const;
    [[nodiscard]] QString exportTarget(const QString& suffix, std::mt19937& random) const;
    /// The user is about to restore a backup, which holds none or an older one of the second writer's counts:
    /// taking it back is right, once.
    void allowReplacing() { m_mayBeReplaced = true; }

    /// The complaints of each save since the last call, and how many there were since the panel was made.
    [[nodiscard]] QStringList takeComplaints() { return std::exchange(m_complaints, {}); }
    [[nodiscard]] int saves() const { return m_saves; }

    /// What the helper was told from showing to hiding, which just took place; waits for the last of it.
    [[nodiscard]] QString brokenMessages();

  private:
    void wasSaved();
    void putFiles() const;
    /// A second writer counts in the settings, either as all of ours do or as an editor does that asks
    /// nobody.
    [[nodiscard]] bool countInFile(bool askingNobody);
    [[nodiscard]] plist::Dictionary savedTop() const;

    SaveWitness m_witness;
    double m_clock = 1000.0;
    QWidget m_other;
    bool m_shown = false;
    int m_saves = 0;
    QStringList m_expected; ///< what the helper has to hear of the saves since the panel was shown
    QStringList m_complaints;
    std::mt19937 m_second{1};     ///< says when the second writer writes
    std::int32_t m_count = 0;     ///< what it has written last
    bool m_countIsThere = false;  ///< nothing but the panel has written the file since
    bool m_mayBeReplaced = false; ///< a backup was chosen that may have been restored since
    bool m_wasJoined = false;     ///< somebody has written since the panel's last save
    plist::Value m_foreign;       ///< what another program keeps in the file; nothing when it keeps nothing
    PaneFixture m_fixture;        ///< behind what counts: the panel saves as it goes
    std::future<void> m_list;     ///< valid while a device list is on its way
};

} // namespace quorvi::test
