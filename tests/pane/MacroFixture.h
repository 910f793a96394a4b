// The panel on its macros tab with a macro selected, the test's own clock, and key events as from X11.
#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QWindow>

#include <utility>
#include <vector>

#include "layouts/XkbKeyboardLayout.h"
#include "pane/EventPatch.h"
#include "pane/ListTools.h"
#include "support/Tabs.h"

namespace quorvi::test {

inline constexpr const char* kStepsTable = "quorviTableSteps";

/// Scan codes of keys.
namespace scancodes {
constexpr quint32 x = 53, a = 38, b = 56, enter = 36, shift = 50, capsLock = 66, escape = 9;
}

/// A step as the tests write it: command, argument, delay.
inline QString stepAsText(int command, int argument, int delay) {
    return QStringLiteral("%1 %2 %3").arg(command).arg(argument).arg(delay);
}

class MacroFixture : public PaneFixture {
  public:
    /// The steps are those of the first macro of two, which is selected.
    explicit MacroFixture(const QStringList& steps = {}, PaneOptions options = {})
        : PaneFixture([&] {
              options.clock = [this] { return now; };
              options.callLater = [this](double seconds, QObject* context, std::function<void()> action) {
                  m_calls.push_back({now + seconds, context, std::move(action)});
              };
              return options;
          }()) {
        gLastEventModifiers = 0;
        gMaxModifierCount = 0;
        SetCurrentKeyboardLayout(makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=us")));
        openWith(treeWith(steps));
        selectTab(kMacrosTab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
        selectRow("quorviTableMacros", 0);
        QCoreApplication::processEvents();
    }
    ~MacroFixture() { SetCurrentKeyboardLayout(nullptr); }

    [[nodiscard]] static plist::Dictionary treeWith(const QStringList& steps) {
        const auto tree = sampleTree();
        const auto array = plist::Array::create();
        for (const QString& text : steps) {
            const QStringList numbers = text.split(QLatin1Char(' '));
            const auto step = plist::Dictionary::create();
            step.set("command", numbers.at(0).toInt());
            step.set("argument", numbers.at(1).toInt());
            step.set("delay", numbers.at(2).toInt());
            array.append(step);
        }
        tree.array("macros").dictionary(0).set("steps", array);
        return tree;
    }

    [[nodiscard]] static QStringList stepsIn(const plist::Dictionary& tree) {
        QStringList result;
        const auto steps = tree.array("macros").dictionary(0).array("steps");
        for (std::size_t index = 0; index < steps.size(); ++index) {
            const auto step = steps.dictionary(index);
            result << stepAsText(step.integer("command"), step.integer("argument"), step.integer("delay"));
        }
        return result;
    }
    [[nodiscard]] QStringList steps() const { return stepsIn(pane->deviceConfig()); }
    [[nodiscard]] QStringList savedSteps() const { return stepsIn(savedSettings()); }
    [[nodiscard]] QStringList shownSteps() const { return shownIn(*this, kStepsTable, 0); }
    [[nodiscard]] QStringList shownDelays() const { return shownIn(*this, kStepsTable, 1); }

    /// That much time passes, and what was to be called by its end is.
    void wait(int milliseconds) {
        now += milliseconds / 1000.0;
        for (const LaterCall& call : std::exchange(m_calls, {})) {
            if (call.time > now)
                m_calls.push_back(call);
            else if (call.context)
                call.action();
        }
    }

    /// Sends the event to the window; whether it was accepted.
    bool send(QEvent::Type type, quint32 scanCode, quint32 keysym = 0, quint32 state = 0,
        bool repeat = false) const {
        QKeyEvent event(type, 0, {}, scanCode, keysym, state, QString(), repeat);
        event.ignore();
        QCoreApplication::sendEvent(window->windowHandle(), &event);
        return event.isAccepted();
    }
    void press(quint32 scanCode, quint32 keysym = 0, quint32 state = 0) const {
        send(QEvent::KeyPress, scanCode, keysym, state);
    }
    void release(quint32 scanCode, quint32 keysym = 0, quint32 state = 0) const {
        send(QEvent::KeyRelease, scanCode, keysym, state);
    }
    void tap(quint32 scanCode) const {
        press(scanCode);
        release(scanCode);
    }

    void record() const { click("quorviButtonStepRecord"); }
    void selectStep(int row) const {
        selectRow(kStepsTable, row);
        closeMenu();
    }
    void chooseForSteps(int tag) const { chooseInGearMenu(*this, "quorviButtonStepGear", tag); }
    static void closeMenu() {
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
        QCoreApplication::processEvents();
    }
    void clickSteps(Qt::MouseButton button) const {
        QTest::mouseClick(find<KyvarQuorviTableView>(kStepsTable)->viewport(), button, {}, QPoint(20, 60));
    }

    double now = 1000.0;

  private:
    struct LaterCall {
        double time;
        QPointer<QObject> context;
        std::function<void()> action;
    };
    std::vector<LaterCall> m_calls;
};

} // namespace quorvi::test
