#include "editors/keys/SingleKeyPanel.h"

#include <QAccessible>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

#include "keyboard/KeyNames.h"
#include "keyboard/ModifierKeys.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

/// The key of the first of the modifiers; the key itself if there are none.
std::uint8_t keyOfModifier(unsigned modifiers, std::uint8_t key) {
    const auto* found = std::ranges::find_if(
        modifierKeys, [modifiers](const ModifierKey& modifier) { return modifiers & modifier.bit; });
    return found == modifierKeys.end() ? key : found->virtualKey;
}

} // namespace

SingleKeyPanel::SingleKeyPanel(const Views& views, Sheets& sheets, std::function<void()> keyCaptureEnded)
    : m_panel(views.panel), m_views(views), m_sheets(sheets), m_keyCaptureEnded(std::move(keyCaptureEnded)) {
    m_panel->installEventFilter(this);
}

std::optional<KeyChoice> SingleKeyPanel::ask(const KeyChoice& shown) {
    m_choice = shown;
    show();
    const QPointer<SingleKeyPanel> guard(this);
    const bool confirmed = m_sheets.run(m_panel) == 1;
    return guard && confirmed && m_choice.key != noKey ? std::optional(m_choice) : std::nullopt;
}

SingleKeyPanel::Texts SingleKeyPanel::texts() const {
    return {m_views.request->text(), m_views.confirm->accessibleDescription(),
        m_views.cancel->accessibleDescription()};
}

void SingleKeyPanel::setTexts(const Texts& texts) {
    m_views.request->setText(texts.request);
    m_views.confirm->setAccessibleDescription(texts.confirming);
    m_views.cancel->setAccessibleDescription(texts.cancelling);
}

std::optional<KeyChoice> SingleKeyPanel::askWith(const Texts& others) {
    const Texts usual = texts();
    setTexts(others);
    const QPointer<SingleKeyPanel> guard(this);
    const auto chosen = ask({});
    if (guard && m_panel)
        setTexts(usual);
    return chosen;
}

void SingleKeyPanel::receiveKey(const CapturedKey& key) {
    const unsigned changed = std::exchange(m_lastModifiers, key.modifiers) ^ key.modifiers;
    if (!key.goingDown)
        return;
    m_choice = {.key = key.modifiers != 0 ? keyOfModifier(changed, key.key) : key.key};
    show();
}

void SingleKeyPanel::show() {
    m_views.field->setText(QString::fromStdU16String(shownKeyCombination(m_choice.key, m_choice.modifiers)));
    // A line edit reports edited text, which screen readers read only for the focused control. This field
    // never has the focus.
    QAccessibleValueChangeEvent change(m_views.field, m_views.field->text());
    QAccessible::updateAccessibility(&change);
}

bool SingleKeyPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide)
        m_keyCaptureEnded();
    return QObject::eventFilter(watched, event);
}

} // namespace quorvi
