// The sheet in which the user edits a profile's sensitivity stages.
#pragma once

#include <QObject>

#include "document/Document.h"
#include "editors/stages/EditedStages.h"
#include "window/EditorContext.h"
#include "window/TableList.h"

class QDialog;
class QPushButton;

namespace quorvi {

class CheckBox;
class KyvarQuorviSlider;

/// All functions except edit() do nothing while the sheet is closed.
class StagesEditor final : public QObject {
  public:
    struct Views {
        QDialog& sheet;
        KyvarQuorviTableView& table;
        QPushButton& add;
        QPushButton& remove;
        QWidget& settings; ///< of the selected stage
        KyvarQuorviSlider& sliderX;
        KyvarQuorviSlider& sliderY;
        CheckBox& independentAxes;
    };

    StagesEditor(const EditorContext& context, const Views& views);

    /// Lets the user edit copies of the stages; OK stores and saves them, anything else discards them.
    /// Returns when the sheet is closed; the editor may be destroyed before.
    void edit() { editAt(m_document.stageIndex()); }
    /// The same with that stage selected, from 0; one that does not exist leaves the current one selected.
    void editAt(std::int32_t stage);
    /// Shows the copies.
    void show();

    /// Makes the stage the current one and the profile's default. Does nothing if the index is out of range.
    void select(std::int32_t index) { m_stages.select(index); }
    void add();
    void remove();
    /// The resolution of the current stage, in DPI, for X; for Y too unless it has separate axes.
    void setX(int resolution);
    void setY(int resolution);
    void setIndependentAxes(bool independent);

    [[nodiscard]] TableList& list() { return m_list; }

  private:
    void close();
    void followSelection();

    Document& m_document;
    PanelText m_text;
    Sheets& m_sheets;
    Views m_views;
    EditedStages m_stages;
    TableList m_list;
};

} // namespace quorvi
