// The list of steps of the current macro: removed ones, and the delays of all of them.
#pragma once

#include <QString>

#include <functional>
#include <optional>

#include "editors/macros/StepEdits.h"
#include "editors/macros/StepFaults.h"
#include "editors/macros/StepInserts.h"
#include "editors/macros/StepsModel.h"
#include "window/EditorContext.h"
#include "window/MenuCommands.h"
#include "window/TableList.h"

class QLabel;
class QPushButton;

namespace quorvi {

class LineLabel;

/// The recording of a macro, and of a single key, as the commands of the lists see it.
struct RecordingCommands {
    std::function<bool()> isRunning;
    /// What the recording has left is offered to be put right, elsewhere than at the steps.
    std::function<bool(const StepCheck& fault)> offersToMend;
    /// Starts or stops one. One of a single step replaces the selected step.
    std::function<void(bool start, bool oneStep)> startOrStop;
    /// What the command that starts and stops is called now.
    std::function<QString()> title;
    /// Starts one that inserts its steps before the one at the index.
    std::function<void(std::size_t index)> startAt;
    /// Asks for a key to insert and gives its USB usage; nothing when the user has called it off, or the
    /// panel has gone meanwhile.
    std::function<std::optional<std::uint8_t>()> askForKey;
};

class StepsEditor final {
  public:
    struct Views {
        KyvarQuorviTableView& table;
        const KyvarQuorviTableView& macros;
        QPushButton& addButton;
        QPushButton& removeButton;
        QPushButton& gearButton;
        QMenu& delays; ///< the items of the cells with delays
        FaultLine& faults;
        QLabel& heading;  ///< the macro's name
        LineLabel& count; ///< of its steps, and how long they take
    };

    StepsEditor(const EditorContext& context, const Views& views, RecordingCommands recording);
    StepsEditor(const StepsEditor&) = delete;
    StepsEditor& operator=(const StepsEditor&) = delete;

    /// Derives what can be used from the document, from which row is selected, and from whether a recording
    /// runs.
    void show();
    /// Shows the steps of another macro, with none selected.
    void showOtherMacro();

    /// Marks the step that is played just now and brings it into view; nothing for none.
    void showPlayed(std::optional<std::size_t> step);

    /// Names the keys of the steps again, by another layout, and leaves the rest as it is: what the user is
    /// typing meanwhile stays. A second keyboard counts as another layout too.
    void showKeyNames();

    /// Removes the selected step, or several ones with their other halves. The next save brings that along.
    void remove();
    /// Every step of the current macro waits that long, in milliseconds, except the last, which has nothing
    /// to wait for. Whoever asks for it saves.
    void setDelayForAll(std::int32_t milliseconds);

    /// The commands of the list's menu.
    [[nodiscard]] std::vector<MenuCommand> commands();
    [[nodiscard]] TableList& list() { return m_list; }
    /// The title of the item for the value of a delay's cell; nothing for one without an item.
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;

  private:
    [[nodiscard]] StepsModel& model() const;
    void commit(const QString& action);
    /// After a double click on the cell of what the step does.
    void recordAgain(const QModelIndex& cell);
    void removeAll();
    void useDelayOfSelectedForAll();
    /// Asks for a factor. Several selected steps get other delays, or else all steps.
    void multiplyDelays();
    void multiplyDelays(std::int32_t thousandths, bool ofSelected);
    void showHeading();
    /// How long the macro takes; empty for no time.
    [[nodiscard]] QString shownLength() const;
    [[nodiscard]] bool isSelected() const;
    [[nodiscard]] bool areSeveralSelected() const;
    [[nodiscard]] bool hasSteps() const;

    EditorContext m_context;
    Views m_views;
    RecordingCommands m_recording;
    TableList m_list;
    StepEdits m_edits;
    StepInserts m_inserts;
    StepFaults m_faults;
};

} // namespace quorvi
