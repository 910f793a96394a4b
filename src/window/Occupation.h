// What the user is at in the window, which is not to be broken off by what somebody else does.
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace quorvi {

class KyvarQuorviTableView;
class Sheets;

class Occupation final : public QObject {
    Q_OBJECT

  public:
    /// Tables and sheets must outlive its use. The function says whether a recording runs.
    Occupation(std::vector<const KyvarQuorviTableView*> tables, const Sheets& sheets,
        std::function<bool()> isRecording);

    /// Whether a cell is edited, a menu or a sheet is open, or a recording runs.
    [[nodiscard]] bool isUnderWay() const;
    /// Tells from now on when the menu, the sheet or the panel that is open, or an edit of a cell, has come
    /// to its end. A recording saves.
    void awaitEnd();
    void stopAwaiting() { m_awaiting.reset(); }

  signals:
    /// What was chosen or typed has been dealt with. Connect it queued.
    void ended();

  private:
    std::vector<const KyvarQuorviTableView*> m_tables;
    const Sheets& m_sheets;
    std::function<bool()> m_isRecording;
    std::unique_ptr<QObject> m_awaiting; ///< hears of the ends; null while nobody waits for them
};

} // namespace quorvi
