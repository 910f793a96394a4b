// The mouse's settings on the device tab: polling rate, lights, firmware version, and restoring the defaults.
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

    /// `defaultSettings` returns the panel's default settings; nil if they cannot be read.
    DeviceEditor(
        const EditorContext& context, const Views& views, std::function<plist::Dictionary()> defaultSettings);

    void show();
    /// Shows the lights that are on in the current profile.
    void showLights();

    /// Stores the rate shown in the pop-up; does nothing for an invalid one.
    void storePollingRate();
    /// Stores the check box's state.
    void storeLightOnWheel();
    void storeLightOnBattery();
    /// Asks, then resets the device and the current profile to the defaults. Keeps values missing in the
    /// defaults, the profile's name, its application and the macros. This object may be destroyed during the
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
