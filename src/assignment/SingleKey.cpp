// The single-key panel, which captures one key, and what captures of any kind have in common.

#include <QAccessible>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

#include "assignment/EventPatch.h"
#include "keyboard/KeyNames.h"
#include "keyboard/ModifierKeys.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"

namespace quorvi {

namespace {

/// The window is the pane's or hangs on it, as a sheet does.
bool belongsTo(const QWindow* window, const QWindow* paneWindow) {
    while (window && window != paneWindow)
        window = window->parent(QWindow::IncludeTransients);
    return window;
}

} // namespace

bool KyvarQuorviPane::overrideSingleKeys() const {
    return fRecorder.isRecording() || (fMainView && fViews->quorviPanelSingleKey->isVisible());
}

bool KyvarQuorviPane::overrideMouseEvents() const {
    return fRecorder.isRecording();
}

bool KyvarQuorviPane::receiveSingleKey(std::uint8_t key, char16_t /*character*/, std::uint16_t modifiers,
    bool goingDown, const KeyEvent& /*event*/) {
    if (fRecorder.isRecording()) {
        recordKey(key, modifiers, goingDown);
        return true;
    }
    if (!fViews->quorviPanelSingleKey->isVisible())
        return false;
    if (modifiers != 0) {
        const unsigned changed = modifiers ^ fSingleKeyLastModifiers;
        const auto* found =
            std::ranges::find_if(modifierKeys, [changed](const ModifierKey& m) { return changed & m.bit; });
        if (found != modifierKeys.end())
            key = found->virtualKey;
    }
    fSingleKeyLastModifiers = modifiers;
    if (!goingDown)
        return true;
    // One key is captured, without the modifiers that are held with it.
    fSingleKeyCode = key;
    fSingleKeyModifiers = 0;
    showSingleKey();
    return true;
}

void KyvarQuorviPane::showSingleKey() {
    QLineEdit* const field = fViews->singleKey.quorviFieldSingleKey;
    field->setText(QString::fromStdU16String(shownKeyCombination(fSingleKeyCode, fSingleKeyModifiers)));
    // A line edit tells of edited text, which screen readers read out where the focus is. Here it never is.
    QAccessibleValueChangeEvent change(field, field->text());
    QAccessible::updateAccessibility(&change);
}

void KyvarQuorviPane::updateKeyboardGrab() {
    QWindow* const focused = QGuiApplication::focusWindow();
    if (gPatchedPane == this && focused && overrideSingleKeys() &&
        belongsTo(focused, fMainView->window()->windowHandle()))
        fKeyboardGrab.start(focused);
    else
        fKeyboardGrab.stop();
}

bool KyvarQuorviPane::eventFilter(QObject* watched, QEvent* event) {
    // When it is shown, the panel gets the focus a little later, and only then the keyboard.
    if (watched == fViews->quorviPanelSingleKey && event->type() == QEvent::Hide)
        updateKeyboardGrab();
    return QObject::eventFilter(watched, event);
}

} // namespace quorvi
