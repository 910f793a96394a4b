#include "walk/Controls.h"

#include <QRegularExpression>

#include <algorithm>

#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

const QStringList kControls{"push button", "check box", "combo box", "slider", "table", "list", "text",
    "page tab", "page tab list", "menu item", "list item", "spin box", "radio button"};
const QStringList kOthers{"filler", "panel", "layered pane", "label", "frame", "dialog", "column header",
    "row header", "cell", "separator", "popup menu"};
/// Of these kinds each says what it does beside its name.
const QStringList kDescribed{
    "push button", "check box", "combo box", "slider", "spin box", "table", "list", "text"};
/// Their names say it all.
const QStringList kSelfExplaining{"push button 'Clear search'", "text 'Profile'", "text 'Macro'"};
/// The toolkit's own panels, of which only this is looked at.
const QStringList kFilePanels{"Import Profile", "Export Profile", "Import Macro", "Export Macro",
    "Choose an Application", "Back Up Settings", "Open Backup"};
const QStringList kOfFilePanels{"text 'File name:'", "push button 'Open'", "push button 'Save'",
    "push button 'Choose'", "push button 'Cancel'"};
/// Of these Qt's have none, and the panel's neither.
const QStringList kWithoutChildren{"label", "push button", "check box", "separator", "column header"};
const QString kStep = QStringLiteral(" › ");

QString keyOf(const QString& role, const QString& name) {
    return QStringLiteral("%1 '%2'").arg(role, name);
}

bool isOnScreen(const Accessible& thing, AccessibleStates states) {
    return states.has(AccessibleState::showing) && thing.extents().height > 0;
}

/// Of nothing else than a thing of this kind it would have to be known whether it is on the screen.
bool canBeOperated(const QString& role, AccessibleStates states) {
    // What is drawn by hand and takes the focus would be a "panel".
    return !onlyShows(role) || (role == "panel" && states.has(AccessibleState::focusable));
}

/// The outermost menu that the thing is in; nothing when it is in none. Menus are not among a program's
/// windows: readers hear of them by their focus.
Accessible openMenuAround(Accessible thing) {
    Accessible menu;
    for (std::string role = thing.role(); role == "menu item" || role == "popup menu"; role = thing.role()) {
        if (role == "popup menu")
            menu = thing;
        thing = thing.parent();
    }
    return menu.is(AccessibleState::visible) ? menu : Accessible();
}

} // namespace

QStringList inputPopUps() {
    return {"combo box '1  Left button'", "combo box '2  Right button'", "combo box '3  Wheel button'",
        "combo box '4  Rear side button'", "combo box '5  Front side button'",
        "combo box '6  Front top button'", "combo box '7  Rear top button'", "combo box '8  Wheel up'",
        "combo box '9  Wheel down'"};
}

bool isProfileMenu(const QString& control) {
    return control.startsWith(QLatin1String("push button 'Profile: ")) ||
           control.startsWith(QLatin1String("push button 'Running now: "));
}

QString nameOf(const Accessible& control) {
    return QString::fromStdString(control.role() == "combo box" ? control.label() : control.name());
}

bool isSpokenName(const QString& name) {
    static const QRegularExpression code("^(quorvi|q_|Q)[A-Za-z_]+$|[/_]|\\.(svg|png|ui)$|&");
    return !name.trimmed().isEmpty() && !name.contains(code);
}

bool onlyShows(const QString& role) {
    return kOthers.contains(role);
}

bool isKnownControl(const QString& role) {
    return kControls.contains(role);
}

QString itemOf(const QStringList& way) {
    return keyOf("menu item", way.join(kStep));
}

QString defaultButtonOf(const Accessible& sheet) {
    QStringList buttons;
    for (const Accessible& thing : everythingIn(sheet))
        if (thing.is(AccessibleState::isDefault))
            buttons << heard(thing);
    return buttons.join(QStringLiteral(", "));
}

QString Controls::meet() {
    for (auto known = m_there.begin(); known != m_there.end();)
        known = known.key().startsWith(QLatin1String("menu item")) ? std::next(known) : m_there.erase(known);
    QString wrong;
    for (const Accessible& window : m_walk.reader().windows()) {
        if (!kFilePanels.contains(QString::fromStdString(window.name()))) {
            look(window, window.states(), {}, wrong);
            continue;
        }
        for (const Accessible& thing : everythingIn(window))
            if (kOfFilePanels.contains(heard(thing)) && isOnScreen(thing, thing.states()))
                note(heard(thing), thing);
    }
    const QString wrongInMenu = meetMenu();
    return wrong.isEmpty() ? wrongInMenu : wrong;
}

QString Controls::meetMenu() {
    QString wrong;
    if (const Accessible menu = openMenuAround(m_walk.reader().focus()); !menu.isNull())
        look(menu, menu.states(), {}, wrong);
    return wrong;
}

void Controls::note(const QString& control, const Accessible& thing) {
    m_there.insert(control, thing);
    if (!m_met.contains(control))
        m_met << control;
}

// The children of a table are its cells, those of a pop-up a list of the toolkit's.
void Controls::look(const Accessible& thing, AccessibleStates states, const QString& way, QString& wrong) {
    const QString role = QString::fromStdString(thing.role());
    QString below = way;
    if (role == "popup menu")
        below = way.isEmpty() ? nameOf(thing) : way;
    if (canBeOperated(role, states) && isOnScreen(thing, states)) {
        const QString name = QString::fromStdString(role == "combo box" ? thing.label() : thing.name());
        QString key = keyOf(role, name);
        if (role == "menu item")
            key = keyOf(role, below = way + kStep + name);
        else if (role == "list item")
            key = keyOf(role, way);
        else if (role == "page tab list") // which takes the name of the tab in front
            key = role;
        if (!isKnownControl(role))
            wrong = "an odd kind: " + key;
        else if (!isSpokenName(name))
            wrong = "no name for the ear: " + key;
        else if (kDescribed.contains(role) && thing.description().empty() && !kSelfExplaining.contains(key))
            wrong = "no description: " + key;
        note(key, thing);
        if (role == "list")
            below = name;
        if (role == "combo box")
            return;
        for (int column = 0; role == "table" && thing.rows() > 0 && column < thing.columns(); ++column)
            note(keyOf("cell", name + kStep + QString::fromStdString(thing.columnTitle(column))),
                thing.cell(0, column));
    }
    if (kWithoutChildren.contains(role))
        return;
    for (const Accessible& child : thing.children())
        if (const AccessibleStates its = child.states(); its.has(AccessibleState::visible))
            look(child, its, below, wrong);
}

// The items of a menu stay the same things while it is closed: no need to look for them again.
bool Controls::isThere(const QString& control) {
    const Accessible known = m_there.value(control);
    if (known.is(AccessibleState::showing))
        return true;
    const bool isItem = control.startsWith(QLatin1String("menu item"));
    if (isItem && !known.role().empty())
        return false;
    const QString wrong = isItem ? meetMenu() : meet();
    if (!wrong.isEmpty())
        qWarning("%s", qPrintable(wrong));
    return m_there.contains(control);
}

Accessible Controls::find(const QString& control) {
    static_cast<void>(waitUntil([&] { return isThere(control); }));
    return m_there.value(control);
}

bool Controls::operate(
    const QString& control, const Effect& effect, const std::function<bool(const Accessible&)>& how) {
    const Accessible thing = find(control);
    QString wrong;
    if (thing.isNull())
        wrong = QStringLiteral("is not there");
    else if (!waitUntil([&] { return thing.is(AccessibleState::enabled); }))
        wrong = QStringLiteral("is disabled");
    else if (effect())
        wrong = QStringLiteral("has nothing to change");
    else if (!how(thing))
        wrong = QStringLiteral("cannot do that");
    else if (!waitUntil(effect))
        wrong = QStringLiteral("has no effect");
    if (wrong.isEmpty())
        m_operated << control;
    else
        qWarning("%s %s", qPrintable(control), qPrintable(wrong));
    return wrong.isEmpty();
}

bool Controls::perform(const QString& control, const char* action, const Effect& effect) {
    return operate(control, effect, [&](const Accessible& thing) { return thing.perform(action); });
}

bool Controls::press(const QString& control, const Effect& effect) {
    return perform(control, "Press", effect);
}

bool Controls::set(const QString& control, double value, const Effect& effect) {
    return operate(control, effect, [&](const Accessible& thing) { return thing.setValue(value); });
}

bool Controls::type(const QString& control, const QString& text, const Effect& effect) {
    return operate(
        control, effect, [&](const Accessible& thing) { return thing.setText(text.toStdString()); });
}

bool Controls::performCell(
    const char* table, int row, const char* column, const char* action, const Effect& effect) {
    const QString name = QString::fromUtf8(table);
    return operate(keyOf("cell", name + kStep + column), effect, [&](const Accessible& /*first*/) {
        const Accessible all = m_there.value(keyOf("table", name));
        for (int place = 0; place < all.columns(); ++place)
            if (all.columnTitle(place) == column)
                return all.cell(row, place).perform(action);
        return false;
    });
}

bool Controls::selectRow(const char* table, int row, const Effect& effect) {
    return operate(
        keyOf("table", table), effect, [&](const Accessible& thing) { return thing.selectRow(row); });
}

bool Controls::choose(const QStringList& way, const Effect& effect) {
    for (int length = 2; length < way.size(); ++length) {
        const QString next = itemOf(way.mid(0, length + 1));
        // It may be open from before.
        if (!isThere(next) && !perform(itemOf(way.mid(0, length)), "ShowMenu", shows(next)))
            return false;
    }
    return press(itemOf(way), effect);
}

Controls::Effect Controls::opens(const char* title) const {
    return [this, title] {
        const auto windows = m_walk.reader().windows();
        return std::any_of(
            windows.begin(), windows.end(), [&](const Accessible& window) { return window.name() == title; });
    };
}

Controls::Effect Controls::closes(const char* title) const {
    return [open = opens(title)] { return !open(); };
}

Controls::Effect Controls::shows(const QString& control) {
    return [this, control] { return isThere(control); };
}

bool Controls::goes(const QString& control) {
    return waitUntil([&] { return !isThere(control); });
}

QStringList Controls::forgotten(const QStringList& leftOut) const {
    QStringList result;
    for (const QString& control : m_met)
        if (!m_operated.contains(control) && !leftOut.contains(control) && !isProfileMenu(control))
            result << control;
    for (const QString& control : leftOut)
        if (!m_met.contains(control) || m_operated.contains(control))
            result << "needlessly left out: " + control;
    for (const QString& control : result)
        qWarning("forgotten: %s", qPrintable(control)); // what compares lists says their sizes only
    return result;
}

QStringList Controls::around() {
    return {"push button 'Undo'", "push button 'Redo'", "push button 'Help'", "page tab list",
        "page tab 'Buttons'", "page tab 'Sensitivity'", "page tab 'Profiles'", "page tab 'Macros'",
        "page tab 'Device'"};
}

} // namespace quorvi::test
