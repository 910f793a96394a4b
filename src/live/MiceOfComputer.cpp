#include "live/MiceOfComputer.h"

#include <algorithm>

#include "events/HelperInterface.h"
#include "events/InputdInterface.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

QString connectionOf(const ListedHelperMouse& mouse, const PanelText& text) {
    if (mouse.connection == "usb")
        return text("USB");
    if (mouse.connection == "bluetooth")
        return text("Bluetooth");
    return mouse.connection == "internal" ? text("Built in") : QString();
}

MouseLine lineOf(const ListedHelperMouse& mouse, const PanelText& text) {
    QStringList details{connectionOf(mouse, text), stateOfMouse(mouse, text)};
    details.removeAll(QString());
    const QString name = shownName(QString::fromStdString(mouse.name));
    return {.id = QString::fromStdString(mouse.id),
        .name = name.isEmpty() ? text("Mouse without a name") : name,
        .detail = joinedText(text("^1 · ^2"), details),
        .inUse = mouse.inUse,
        .canSetUp = canBeSetUp(mouse)};
}

void showWhatIsFixed(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const PanelText& text) {
    // The simulated mouse replaces a chosen one that is not plugged in or not driven by a service.
    const auto anyInUse = [&](bool ListedHelperMouse::*isFixed) {
        return helper.hasService && std::ranges::any_of(helper.mice, [&](const ListedHelperMouse& mouse) {
            return canBeSetUp(mouse) && mouse.*isFixed;
        });
    };
    const bool fixedRate = anyInUse(&ListedHelperMouse::fixedPollingRate);
    const bool fixedLights = anyInUse(&ListedHelperMouse::fixedLights);
    const QString rateHint = text("No program can set the polling rate of the mouse in use.");
    const QString lightsHint = text("No program can control the lights of the mouse in use.");
    views.textPollingHint->setText(
        fixedRate ? rateHint
                  : text("A higher rate makes the pointer more responsive, but uses more battery."));
    views.textLightsHint->setText(fixedLights ? lightsHint : text("Each profile has its own lights."));
    // Screen readers read it for the controls.
    views.quorviMenuPollingRate->setAccessibleDescription(
        fixedRate ? rateHint : text("How many times a second the mouse reports its movement."));
    views.quorviBoxLightOnWheel->setAccessibleDescription(
        fixedLights ? lightsHint : text("Turns the wheel light on or off in this profile."));
    views.quorviBoxLightOnBattery->setAccessibleDescription(
        fixedLights ? lightsHint : text("Turns the battery indicator light on or off in this profile."));
}

} // namespace

void showMice(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const PanelText& text) {
    QList<MouseLine> lines;
    if (helper.hasService)
        for (const ListedHelperMouse& mouse : helper.mice)
            lines << lineOf(mouse, text);
    views.listMice->setLines(lines);
    views.groupMice->setVisible(helper.hasService);
    showWhatIsFixed(views, helper, text);
}

bool canBeSetUp(const ListedHelperMouse& mouse) {
    return mouse.inUse && (mouse.state == inputd::kStateDriven || mouse.state == inputd::kStateWaiting);
}

QString stateOfMouse(const ListedHelperMouse& mouse, const PanelText& text) {
    using namespace helperinterface;
    if (mouse.state == kStateAsking)
        return text("Waiting for permission");
    if (mouse.state == kStateRefused)
        return text("Not permitted by an administrator");
    if (mouse.state == kStateAbsent)
        return text("Not plugged in");
    if (mouse.state == inputd::kStateWaiting)
        return text("In use once all its buttons are released");
    if (mouse.state == inputd::kStateBusy)
        return text("Taken by another program");
    return mouse.state == inputd::kStateDriven ? text("In use") : QString();
}

void orderStopsOfMice(const Ui::KyvarQuorviPane& views) {
    QWidget* before = views.quorviBoxLightOnBattery;
    for (QWidget* stop : views.listMice->stops()) {
        QWidget::setTabOrder(before, stop);
        before = stop;
    }
}

} // namespace quorvi
