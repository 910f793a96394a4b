// The sensitivity tab: the resolution of the current stage, the pointer's acceleration, and whether changes
// of the sensitivity are displayed.
#pragma once

#include <cstdint>

#include "document/Document.h"
#include "window/EditorContext.h"

class QLabel;

namespace quorvi {

class AccelerationCurve;
class CheckBox;
class KyvarQuorviSlider;
class StageBar;

/// What a control sets goes into the tree, is shown and saved at once.
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
        AccelerationCurve& accelerationCurve;
    };

    SensitivityEditor(const EditorContext& context, const Views& views);

    void show();
    /// Says which resolution is in use.
    void showResolution();
    /// Draws the current profile's stages with the current one marked.
    void showStages();
    /// Draws the acceleration that the box and the slider show.
    void showAcceleration();

    /// Stores the resolution, in DPI, for X; for Y as well while the stage has no axes of their own.
    void setX(int resolution);
    void setY(int resolution);
    void setIndependentAxes(bool independent);
    /// The acceleration as its slider shows it.
    void storeAcceleration();
    /// Whether the pointer is accelerated at all, as the box shows it.
    void storeAccelerated();
    /// Whether changes of the sensitivity are displayed, as the box shows it.
    void storeDisplay();

    /// Makes the stage that the mouse runs the current one, when it runs the current profile; both are
    /// counted from 1, 0 when it is not known. Does nothing while a sheet is up. Nothing is saved: the mouse
    /// has it, and the next save brings it along.
    void followRunningStage(std::uint32_t profile, std::uint32_t stage);

  private:
    void commitResolution();
    [[nodiscard]] bool isCurrentProfile(std::uint32_t number) const;
    [[nodiscard]] QString accelerationText(float factor) const;

    Document& m_document;
    PanelText m_text;
    Sheets& m_sheets;
    Views m_views;
};

} // namespace quorvi
