// The sensitivity tab: the resolution of the current stage, the pointer's acceleration, and whether changes
// of the sensitivity are displayed.
#pragma once

#include <QList>

#include <cstdint>

#include "document/Document.h"
#include "window/EditorContext.h"

class QLabel;

namespace quorvi {

class AccelerationCurve;
class CheckBox;
class KyvarQuorviSlider;
class NumberField;
class StageBar;
struct StageField;

/// Every change is stored in the tree, shown and saved at once.
class SensitivityEditor {
  public:
    struct Views {
        KyvarQuorviSlider& sliderX;
        KyvarQuorviSlider& sliderY;
        QLabel& labelX;
        QLabel& labelY;
        CheckBox& independentAxes;
        QLabel& resolution;
        StageBar& stages;
        CheckBox& display;
        CheckBox& acceleration;
        KyvarQuorviSlider& accelerationSlider;
        NumberField& accelerationField;
        AccelerationCurve& accelerationCurve;
    };

    SensitivityEditor(const EditorContext& context, const Views& views);

    void show();
    /// Shows the resolution in use.
    void showResolution();
    /// Draws the current profile's stages with the current one marked.
    void showStages();
    /// Draws the acceleration set by the check box and the slider.
    void showAcceleration();

    /// Stores the resolution, in DPI, for X; for Y too unless the stage has separate axes.
    void setX(int resolution);
    void setY(int resolution);
    void setIndependentAxes(bool independent);
    /// Stores the slider's acceleration.
    void storeAcceleration();
    /// Stores the check box for acceleration.
    void storeAccelerated();
    /// Stores the check box for displaying changes of sensitivity.
    void storeDisplay();

    /// Makes the mouse's running stage the current one if it runs the current profile; both count from 1, 0
    /// for unknown. Does nothing while a sheet is open. Does not save: the mouse has the stage, and the next
    /// save includes it.
    void followRunningStage(std::uint32_t profile, std::uint32_t stage);

  private:
    void commitResolution();
    [[nodiscard]] bool isCurrentProfile(std::uint32_t number) const;
    [[nodiscard]] QString accelerationText(float factor) const;
    [[nodiscard]] QList<StageField> stageFields() const;

    Document& m_document;
    PanelText m_text;
    Sheets& m_sheets;
    Views m_views;
};

} // namespace quorvi
