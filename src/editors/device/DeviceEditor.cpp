#include "editors/device/DeviceEditor.h"

#include <QLabel>

#include "model/Keys.h"
#include "model/LightState.h"
#include "widgets/CheckBox.h"
#include "widgets/MouseLights.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"
#include "window/ActionNames.h"
#include "window/Notices.h"
#include "window/Sheets.h"
#include "window/Unread.h"

namespace quorvi {

namespace {

constexpr int kLowestPollingRate = 125;   // Hz, as of every USB low-speed device
constexpr int kHighestPollingRate = 1000; // Hz, one report in each USB frame

QString firmwareText(std::int32_t firmware) {
    return QStringLiteral("%1.%2").arg((firmware >> 8) & 0xFF).arg(firmware & 0xFF, 2, 10, QLatin1Char('0'));
}

/// A key missing in the source leaves the target's value unchanged.
void copyValues(const plist::Dictionary& source, const plist::Dictionary& target,
    std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names)
        if (source.has(name))
            target.set(name, source.value(name));
}

} // namespace

DeviceEditor::DeviceEditor(
    const EditorContext& context, const Views& views, std::function<plist::Dictionary()> defaultSettings)
    : m_document(context.document), m_text(context.text), m_sheets(context.sheets),
      m_notices(context.notices), m_views(views), m_defaultSettings(std::move(defaultSettings)) {}

void DeviceEditor::show() {
    m_views.mouse.setEnabled(m_document.hasDevice());
    m_views.lights.setEnabled(m_document.hasDevice());
    if (m_document.tree())
        m_views.pollingRate.selectItemWithTag(m_document.settings().integer(keys::pollingRate));
    else
        m_views.pollingRate.selectNone(unreadText());
    showLights();
    m_views.firmware.setText(m_document.hasDevice() ? firmwareText(m_document.tree().integer(keys::firmware))
                                                    : QStringLiteral("-"));
}

void DeviceEditor::showLights() {
    const std::int32_t lit = m_document.profile().integer(keys::ledState);
    const bool wheel = (lit & lights::wheel) != 0;
    const bool battery = (lit & lights::battery) != 0;
    m_views.lightOnWheel.setChecked(wheel);
    m_views.lightOnBattery.setChecked(battery);
    m_views.mouse.setLights(wheel, battery);
    m_views.lights.setLights(wheel, battery);
}

void DeviceEditor::storePollingRate() {
    const int rate = m_views.pollingRate.selectedTag();
    if (rate >= kLowestPollingRate && rate <= kHighestPollingRate)
        m_document.settings().set(keys::pollingRate, rate);
    m_document.commit(
        {.action = actionName(m_text("Change Polling Rate")), .touched = Touched::currentProfile});
}

void DeviceEditor::setLight(std::int32_t bit, bool on, const QString& action) {
    const std::int32_t lit = m_document.profile().integer(keys::ledState);
    m_document.profile().set(keys::ledState, on ? (lit | bit) : (lit & ~bit));
    m_document.commit(
        {.shown = Shown::lights, .action = actionName(action), .touched = Touched::currentProfile});
}

void DeviceEditor::storeLightOnWheel() {
    const bool on = m_views.lightOnWheel.isChecked();
    setLight(lights::wheel, on, m_text(on ? "Turn On Wheel Light" : "Turn Off Wheel Light"));
}

void DeviceEditor::storeLightOnBattery() {
    const bool on = m_views.lightOnBattery.isChecked();
    setLight(lights::battery, on,
        m_text(on ? "Turn On Battery Indicator Light" : "Turn Off Battery Indicator Light"));
}

void DeviceEditor::restoreFrom(const plist::Dictionary& defaults) {
    copyValues(defaults, m_document.tree(), {keys::settings});
    const plist::Dictionary first = defaults.array(keys::profiles).dictionary(0);
    copyValues(
        first, m_document.profile(), {keys::ledState, keys::defaultStage, keys::stages, keys::buttons});
    copyValues(first.dictionary(keys::driver), m_document.profile().dictionary(keys::driver),
        {keys::profileDisplay, keys::sensitivityDisplay, keys::enableAcceleration, keys::acceleration});
    m_document.editProfileIndex(m_document.profileIndex());
}

void DeviceEditor::restoreDefaults() {
    const QString effect = m_text(
        "Resets this profile and the mouse's settings to the defaults. Macros and other profiles are kept.");
    if (!m_sheets.confirm(Question{
            .message = "Are you sure you want to restore all settings to default?", .effect = effect}))
        return;
    if (const plist::Dictionary defaults = m_defaultSettings())
        restoreFrom(defaults);
    if (m_document.commit({.action = actionName(m_text("Restore Defaults"))}))
        m_notices.tellUndoable(m_text("The default settings were restored."));
}

} // namespace quorvi
