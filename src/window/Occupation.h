// User actions in the window that other programs' changes must not interrupt.
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
    /// Tables and sheets must outlive its use. `isRecording` returns whether a recording runs.
    Occupation(std::vector<const KyvarQuorviTableView*> tables, const Sheets& sheets,
        std::function<bool()> isRecording);

    /// Whether a cell is edited, a menu or a sheet is open, or a recording runs.
    [[nodiscard]] bool isUnderWay() const;
    /// From now on signals the end of the open menu, sheet or panel, or of a cell edit. Not needed for a
    /// recording, which saves.
    void awaitEnd();
    void stopAwaiting() { m_awaiting.reset(); }

  signals:
    /// The choice or input has been processed. Connect it queued.
    void ended();

  private:
    std::vector<const KyvarQuorviTableView*> m_tables;
    const Sheets& m_sheets;
    std::function<bool()> m_isRecording;
    std::unique_ptr<QObject> m_awaiting; ///< receives the ends; null while not needed
};

} // namespace quorvi
