#include "live/MouseSetUp.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <memory>
#include <utility>

#include <linux/input-event-codes.h>

#include "engine/Options.h"
#include "events/HelperInterface.h"
#include "events/InputdInterface.h"
#include "layouts/EvdevKeys.h"
#include "live/MiceOfComputer.h"
#include "widgets/MouseView.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// Keys that work in every sheet, from any device.
bool belongsToSheets(const QKeyEvent& key) {
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return true;
    switch (key.key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Space:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
        return true;
    default:
        return false;
    }
}

bool isPointing(std::uint16_t code) {
    return code == BTN_LEFT || code == BTN_RIGHT || code == BTN_MIDDLE;
}

} // namespace

MouseSetUp::MouseSetUp(Sheet sheet, const ListedHelperMouse& mouse)
    : m_sheet(std::move(sheet)), m_isOpen(&m_sheet.panel), m_mouse(mouse), m_steps(mouse.codes) {
    auto& views = m_sheet.views;
    const QString name = shownName(QString::fromStdString(mouse.name));
    views.textSetUpMouse->setText(name.isEmpty() ? m_sheet.text("Mouse without a name") : name);
    views.groupSetUpDpi->setVisible(mouse.hardwareDpi == 0);
    views.quorviFieldSetUpDpi->setText(mouse.dpi == 0 ? QString() : QString::number(mouse.dpi));
    static const QRegularExpression digits(
        QStringLiteral("\\d*"), QRegularExpression::UseUnicodePropertiesOption);
    if (!views.quorviFieldSetUpDpi->validator())
        views.quorviFieldSetUpDpi->setValidator(
            std::make_unique<QRegularExpressionValidator>(digits, views.quorviFieldSetUpDpi).release());
    views.viewSetUpMouse->setReported(true);
    views.viewSetUpMouse->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(views.quorviSetUpButtonSkip, &QPushButton::clicked, this, &MouseSetUp::skip);
    connect(views.quorviSetUpButtonBack, &QPushButton::clicked, this, &MouseSetUp::back);
    connect(views.quorviSetUpButtonDone, &QPushButton::clicked, this, &MouseSetUp::finish);
    m_sheet.panel.installEventFilter(this);
    views.quorviSetUpButtonSkip->setEnabled(true);
    views.quorviSetUpButtonSkip->setFocus();
}

MouseSetUp::~MouseSetUp() {
    end();
}

void MouseSetUp::setFollower(HelperFollower* follower) {
    end();
    ++m_followers;
    m_follower = follower;
    m_unanswered = 0;
    helperChanged();
}

void MouseSetUp::end() {
    if (m_follower)
        m_follower->endSetUp();
    m_hasBegun = false;
}

const ListedHelperMouse* MouseSetUp::listed() const {
    if (!m_follower)
        return nullptr;
    const auto& mice = m_follower->state().mice;
    const auto found = std::ranges::find(mice, m_mouse.id, &ListedHelperMouse::id);
    return found == mice.end() ? nullptr : &*found;
}

bool MouseSetUp::isThere() const {
    const auto* mouse = listed();
    return mouse && canBeSetUp(*mouse);
}

/// Why no button can be pressed now.
QString MouseSetUp::hindrance() const {
    const auto& text = m_sheet.text;
    if (!m_follower)
        return text("The background program is not running.");
    if (!m_follower->state().hasService)
        return text("Someone else is using the computer, or the service for mice has stopped.");
    const auto* mouse = listed();
    if (!mouse)
        return text("Not plugged in");
    return mouse->inUse ? stateOfMouse(*mouse, text) : text("It is no longer in use.");
}

HelperFollower::Answer MouseSetUp::later(std::function<void(const QString& error)> then) {
    return [self = QPointer(this), followers = m_followers, then = std::move(then)](std::string_view error) {
        if (!self)
            return;
        const auto name = QString::fromUtf8(error.data(), static_cast<int>(error.size()));
        QMetaObject::invokeMethod(
            self.data(),
            [=] {
                if (self->m_followers == followers)
                    then(name);
            },
            Qt::QueuedConnection);
    };
}

void MouseSetUp::helperChanged() {
    if (!isThere())
        m_hasBegun = m_isTaken = false;
    else if (!m_hasBegun)
        begin();
    show();
}

void MouseSetUp::begin() {
    m_hasBegun = true;
    m_follower->beginSetUp(m_mouse.id, later([this](const QString& error) {
        m_hasBegun = m_hasBegun && error.isEmpty();
        m_isTaken = error == QLatin1String(helperinterface::kErrorBusy);
        show();
    }));
}

/// Whether the press is meant for this sheet. A click of the left button on a control, or elsewhere on the
/// screen, is not an answer.
bool MouseSetUp::isAimed(std::uint16_t code) const {
    const QDialog& panel = m_sheet.panel;
    if (!panel.isActiveWindow() || !isPointing(code))
        return panel.isActiveWindow();
    const auto& views = m_sheet.views;
    const auto isUnderMouse = [](const QWidget* widget) { return widget->underMouse(); };
    return panel.underMouse() &&
           std::ranges::none_of(
               std::initializer_list<const QWidget*>{views.quorviSetUpButtonBack, views.quorviSetUpButtonSkip,
                   views.quorviSetUpButtonDone, views.quorviSetUpButtonCancel, views.quorviFieldSetUpDpi},
               isUnderMouse);
}

void MouseSetUp::codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) {
    if (!m_isOpen || mouse != m_mouse.id || !m_hasBegun)
        return;
    auto* drawing = m_sheet.views.viewSetUpMouse;
    if (!pressed)
        return drawing->reportInput(m_steps.inputOf(code), false);
    if (!isAimed(code)) {
        if (m_sheet.panel.isActiveWindow() && m_steps.asked() != 0)
            show(m_sheet.text("Press with the pointer over this window, but not over its buttons."));
        return;
    }
    press(code);
    drawing->reportInput(m_steps.inputOf(code), true);
}

void MouseSetUp::press(std::uint16_t code) {
    if (m_steps.take(code))
        return show();
    const int input = m_steps.inputOf(code);
    show(input == 0 || m_steps.asked() == 0
             ? QString()
             : filledText(m_sheet.text("That button is already number ^1."), {QString::number(input)}));
}

bool MouseSetUp::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_sheet.panel && event->type() == QEvent::KeyPress &&
        takesKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}

/// Some mice type keys. A key's device is not known here, so the helper is told to capture the mouse's:
/// pressed again, a mouse's key is reported like a button, while a keyboard's key just arrives here again.
bool MouseSetUp::takesKey(const QKeyEvent& key) {
    const auto scanCode = key.nativeScanCode();
    if (!m_hasBegun || m_steps.asked() == 0 || belongsToSheets(key) || scanCode <= xkbKeycodeOffset ||
        scanCode - xkbKeycodeOffset > KEY_MAX)
        return false;
    if (key.isAutoRepeat())
        return true;
    const auto code = static_cast<std::uint16_t>(scanCode - xkbKeycodeOffset);
    if (m_steps.inputOf(code) != 0) {
        press(code);
        return true;
    }
    m_follower->watchKey(code);
    show(m_sheet.text("A key was pressed. If the mouse did that, press the same mouse button again."));
    return true;
}

void MouseSetUp::skip() {
    m_steps.skip();
    show();
}

void MouseSetUp::back() {
    m_steps.back();
    m_sheet.views.viewSetUpMouse->marks().setOnly(0, InputMarks::Reported);
    show();
}

/// std::nullopt if out of bounds, 0 if empty.
std::optional<std::uint16_t> MouseSetUp::dpiInField() const {
    const QString text = m_sheet.views.quorviFieldSetUpDpi->text();
    int dpi = 0;
    for (const QChar digit : text)
        dpi = dpi * 10 + digit.digitValue(); // digits of any script; the field accepts at most five
    if (!text.isEmpty() && (dpi < engine::lowestSensorDpi || dpi > engine::highestSensorDpi))
        return std::nullopt;
    return static_cast<std::uint16_t>(dpi);
}

void MouseSetUp::finish() {
    if (!m_hasBegun || m_unanswered != 0)
        return;
    const auto dpi = dpiInField();
    if (!dpi) {
        m_sheet.views.quorviFieldSetUpDpi->setFocus();
        m_sheet.views.quorviFieldSetUpDpi->selectAll();
        return show(m_sheet.text("A sensor has from 100 to 64000 DPI."));
    }
    const bool otherCodes = m_steps.codes() != m_mouse.codes;
    const bool otherDpi = m_mouse.hardwareDpi == 0 && *dpi != m_mouse.dpi;
    m_hasFailed = false;
    m_unanswered = int{otherCodes} + int{otherDpi};
    const auto answer = [this](const QString& error) { saved(error); };
    if (otherCodes)
        m_follower->setCodes(m_mouse.id, m_steps.codes(), later(answer));
    if (otherDpi)
        m_follower->setDpi(m_mouse.id, *dpi, later(answer));
    if (m_unanswered == 0)
        m_sheet.panel.accept();
    else
        show();
}

void MouseSetUp::saved(const QString& error) {
    m_hasFailed = m_hasFailed || !error.isEmpty();
    if (--m_unanswered > 0)
        return;
    if (m_hasFailed)
        show(m_sheet.text("Your choice for the mouse could not be saved."));
    else
        m_sheet.panel.accept();
}

void MouseSetUp::show(const QString& note) {
    if (!m_isOpen)
        return;
    const auto& text = m_sheet.text;
    const bool isWaiting = !m_hasBegun;
    const int asked = m_steps.asked();
    if (isWaiting)
        say(text("Waiting for the mouse…"),
            m_isTaken ? text("Another program is setting up a mouse. Try again when it has finished.")
                      : hindrance());
    else if (asked == 0)
        say(text("All numbers have been asked for."), note);
    else
        say(filledText(text("Press the button that should be number ^1, or skip."), {QString::number(asked)}),
            note);
    showMarks();
    showButtons(!isWaiting);
}

void MouseSetUp::showMarks() {
    InputMarks& marks = m_sheet.views.viewSetUpMouse->marks();
    for (int input = 1; input <= SetUpSteps::inputs; ++input)
        marks.set(input, InputMarks::Known, m_steps.isPressed(input));
    marks.setOnly(!m_hasBegun ? 0 : m_steps.asked(), InputMarks::Asked);
}

/// A button that gets disabled passes the focus to the next enabled one.
void MouseSetUp::showButtons(bool ready) {
    auto& views = m_sheet.views;
    const QWidget* focused = m_sheet.panel.focusWidget();
    views.quorviSetUpButtonSkip->setEnabled(ready && m_steps.asked() != 0);
    views.quorviSetUpButtonBack->setEnabled(ready && m_steps.canGoBack());
    views.quorviSetUpButtonDone->setEnabled(ready && m_unanswered == 0);
    if (focused && focused->isEnabled())
        return;
    for (QPushButton* button :
        {views.quorviSetUpButtonSkip, views.quorviSetUpButtonDone, views.quorviSetUpButtonCancel})
        if (button->isEnabled())
            return button->setFocus();
}

/// Screen readers announce changes of the focused control.
void MouseSetUp::say(const QString& question, const QString& note) {
    auto& views = m_sheet.views;
    if (views.textSetUpQuestion->text() == question && views.textSetUpNote->text() == note)
        return;
    views.textSetUpQuestion->setText(question);
    views.textSetUpNote->setText(note);
    const QStringList said = note.isEmpty() ? QStringList(question) : QStringList{question, note};
    const auto linesWith = [&said](const QString& last) {
        return (said + QStringList(last)).join(QLatin1Char('\n'));
    };
    views.quorviSetUpButtonSkip->setAccessibleDescription(
        linesWith(m_sheet.text("Leaves this number as it was.")));
    views.quorviSetUpButtonDone->setAccessibleDescription(
        linesWith(m_sheet.text("Saves the numbers you chose.")));
    QAccessibleEvent alert(
        note.isEmpty() ? views.textSetUpQuestion : views.textSetUpNote, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace quorvi
