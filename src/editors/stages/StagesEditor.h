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

/// All but edit() does nothing while the sheet is closed.
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

    /// Lets the user edit copies of the stages; OK stores them and saves, anything else forgets them. Returns
    /// when the sheet is closed, which the editor itself may not outlive.
    void edit();
    /// Shows the copies.
    void show();

    /// Makes the stage the current one, and the one that the profile starts in; nothing for another index.
    void select(std::int32_t index) { m_stages.select(index); }
    void add();
    void remove();
    /// The resolution of the current stage, in DPI, for X; for Y as well while it has no axes of their own.
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
