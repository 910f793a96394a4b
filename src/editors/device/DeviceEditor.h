// What the device tab sets of the mouse itself: how often it reports, its lights, its firmware's version, and
// the way back to the defaults.
#pragma once

#include <functional>

#include "document/Document.h"
#include "window/EditorContext.h"

class QLabel;

namespace quorvi {

class CheckBox;
class MouseLights;
class MouseView;
class PopUpButton;

class DeviceEditor {
  public:
    struct Views {
        PopUpButton& pollingRate;
        CheckBox& lightOnWheel;
        CheckBox& lightOnBattery;
        MouseView& mouse;    ///< on the buttons tab, drawn with its lights
        MouseLights& lights; ///< on the device tab
        QLabel& firmware;
    };

    /// The last one gives the settings that the panel comes with; nil when they cannot be read.
    DeviceEditor(
        const EditorContext& context, const Views& views, std::function<plist::Dictionary()> defaultSettings);

    void show();
    /// Shows the lights that are on in the current profile.
    void showLights();

    /// Stores the rate that the pop-up shows; one that no mouse has changes nothing.
    void storePollingRate();
    /// Stores whether the light is on, as the box shows it.
    void storeLightOnWheel();
    void storeLightOnBattery();
    /// Asks, and then gives the device and the current profile the defaults. What the defaults lack stays,
    /// and so do the profile's name, its application and the macros. This object may not outlive the
    /// question.
    void restoreDefaults();

  private:
    void setLight(std::int32_t bit, bool on, const QString& action);
    void restoreFrom(const plist::Dictionary& defaults);

    Document& m_document;
    PanelText m_text;
    Sheets& m_sheets;
    Notices& m_notices;
    Views m_views;
    std::function<plist::Dictionary()> m_defaultSettings;
};

} // namespace quorvi
