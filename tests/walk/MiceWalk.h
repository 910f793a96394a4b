// The real panel and the real helper with a mouse that can be set up; a stand-in for the system's service
// provides it.
#pragma once

#include <linux/input-event-codes.h>

#include "helper/support/StandInService.h"
#include "plist/Reader.h"
#include "support/WaitUntil.h"
#include "walk/Controls.h"

namespace quorvi::test {

inline constexpr char kSetUpMouse[] = "1e7d:2dcb:one";
inline const QString kBox = QStringLiteral("check box 'Test mouse'");
inline const QString kSetUp = QStringLiteral("push button 'Set up Test mouse'");
inline const QString kSkip = QStringLiteral("push button 'Skip'");
inline const QString kField = QStringLiteral("text 'Dots per inch of the sensor'");
inline const QString kDone = QStringLiteral("push button 'Done'");
// By their places: keymaps have other signs there.
inline const QString kF13 = QString::number(KEY_F13 + 8);
inline const QString kF14 = QString::number(KEY_F14 + 8);
inline const QString kWaits = QStringLiteral("label 'Waiting for the mouse…'");

[[nodiscard]] inline QString asksFor(int input) {
    return QStringLiteral("label 'Press the button that should be number %1, or skip.'").arg(input);
}

/// The panel on its device tab, with one mouse plugged in that nobody uses yet.
class MiceWalk {
  public:
    [[nodiscard]] bool isThere(const QString& wanted) const { return !walk.thing(wanted).isNull(); }
    [[nodiscard]] bool isDriven(const engine::ButtonCodes& codes) const {
        return waitUntil([&] { return service->optionsOf(kSetUpMouse).buttonCodes == codes; });
    }
    /// What has the focus asks for that number.
    [[nodiscard]] Controls::Effect says(int input) const {
        return [this, input] {
            return walk.thing(kSkip).description().find("should be number " + std::to_string(input)) !=
                   std::string::npos;
        };
    }
    void press(int code) const {
        service->tellCode(kSetUpMouse, code, true);
        service->tellCode(kSetUpMouse, code, false);
    }
    /// The helper's file has the mouse so.
    [[nodiscard]] plist::Dictionary kept() const {
        const auto file = walk.session().home.path() + "/.config/kyvar-quorvi/mice.plist";
        return plist::readPropertyListFile(file).value.dictionary().dictionary("mice").dictionary(
            "1e7d:2dcb");
    }
    /// Opens the sheet from the list of mice by keys.
    [[nodiscard]] bool openSheet() {
        if (!walk.enterTab(kDeviceTab) || !walk.moveTo(kBox))
            return false;
        walk.press({"space"});
        if (!isUsed() || !walk.moveTo(kSetUp))
            return false;
        walk.press({"space"});
        return walk.focusBecomes(kSkip) == kSkip && isThere(asksFor(1)) && isPlain();
    }
    /// The mouse has come into use, and can be set up.
    [[nodiscard]] bool isUsed() const {
        return waitUntil([&] {
            return service->countOf(std::string("Use ") + kSetUpMouse) > 0 &&
                   walk.thing(kSetUp).is(AccessibleState::enabled);
        });
    }
    [[nodiscard]] bool isPlain() const { return isDriven(engine::ButtonCodes{}); }

    PrivateBus systemBus;
    EnvironmentVariable system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address()};
    std::unique_ptr<StandInService> service =
        std::make_unique<StandInService>(std::vector<StandInMouse>{{kSetUpMouse}});
    Walk walk{
        UserHome::defaults(), {.heardThen = "label 'Demonstration mouse – choose yours on the Device tab'"}};
};

} // namespace quorvi::test
