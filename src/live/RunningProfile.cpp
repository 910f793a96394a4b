#include "live/RunningProfile.h"

#include <QLabel>
#include <QPushButton>

namespace quorvi {

QString runningText(const HelperNews& helper, const QString& profile, const PanelText& text) {
    if (profile.isEmpty())
        return {};
    if (helper.frontReason.empty()) {
        const QString chosen = text("Running now: ^1 – because you chose it");
        return filledText(chosen, {nameFor(chosen, profile)});
    }
    const QString followed = text("Running now: ^1 – because ^2 is in front");
    return filledText(followed,
        {nameFor(followed, profile), nameFor(followed, QString::fromStdString(helper.frontReason))});
}

namespace {

bool canSwitchExtensionOn(const HelperNews& helper) {
    return helper.gnomeExtension == "disabled" || helper.gnomeExtension == "off";
}

/// Why profiles do not switch automatically here; empty if they do.
QString hindranceText(const HelperNews& helper, const PanelText& text) {
    if (!helper.followsFront || !helper.frontSource.empty())
        return {};
    if (canSwitchExtensionOn(helper))
        return text(
            "GNOME needs an extension to report which application is in front, and it is turned off.");
    if (helper.gnomeExtension == "missing")
        return text("GNOME needs this panel's extension to report which application is in front. If you have "
                    "just installed it, log out and in again.");
    if (helper.gnomeExtension == "error")
        return text("GNOME reports an error in the extension that tells which application is in front, so "
                    "profiles do not switch automatically.");
    if (!helper.gnomeExtension.empty())
        return {}; // it is on, and about to report
    if (helper.desktop.empty())
        return text("This desktop does not report which application is in front, so profiles do not switch "
                    "automatically.");
    const QString named =
        text("^1 does not report which application is in front, so profiles do not switch automatically.");
    return filledText(named, {nameFor(named, QString::fromStdString(helper.desktop))});
}

void showText(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

/// A button that is hidden passes the focus to the list, not to the next control.
void showButton(QPushButton& button, bool shown, QWidget& list) {
    const bool hadFocus = button.window()->focusWidget() == &button;
    if (hadFocus && !shown)
        list.setFocus();
    button.setVisible(shown);
}

} // namespace

void showRunningProfile(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const QString& profile,
    const PanelText& text) {
    showText(*views.textRunningProfile, runningText(helper, profile, text));
    showText(*views.textFrontHindrance, hindranceText(helper, text));
    showButton(*views.quorviButtonGnomeExtension, helper.frontSource.empty() && canSwitchExtensionOn(helper),
        *views.quorviTableProfiles);
    views.viewFrontHindrance->setVisible(!views.textFrontHindrance->text().isEmpty());
}

} // namespace quorvi
