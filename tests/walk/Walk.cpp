#include "walk/Walk.h"

#include <csignal>
#include <fstream>

#include "support/Keyboard.h"
#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

constexpr int kMostMoves = 30; // more than any window has controls, or any menu items

plist::Dictionary macro(std::int32_t identifier, std::u16string name) {
    constexpr int kSteps = 3;
    const auto steps = plist::Array::create();
    for (std::int32_t step = 0; step < kSteps; ++step) {
        const auto keyDown = plist::Dictionary::create();
        keyDown.set("command", 1);
        keyDown.set("argument", step + 4); // the keys A, B and C
        keyDown.set("delay", 0);
        steps.append(keyDown);
    }
    const auto result = plist::Dictionary::create();
    result.set("macroid", identifier);
    result.set("name", std::move(name));
    result.set("delay", 0);
    result.set("steps", steps);
    return result;
}

void install(const UserHome& home, const std::string& name) {
    const std::filesystem::path folder = home.path() + "/.local/share/applications";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / (name + ".desktop"))
        << "[Desktop Entry]\nType=Application\nName=" << name << "\nExec=true\n";
}

QStringList namesIn(const plist::Array& items) {
    QStringList names;
    for (std::size_t index = 0; index < items.size(); ++index)
        names << QString::fromStdU16String(items.dictionary(index).string("name"));
    return names;
}

} // namespace

Walk::Walk(const plist::Dictionary& settings, const WalkStart& start) {
    m_session.home.writeSettings(settings);
    if (start.before)
        start.before();
    if (!start.attached) {
        m_session.startHelper();
        m_session.detach();
    }
    for (const char* name : {"Byte Editor", "Terminal"})
        install(m_session.home, name);
    const std::string home = m_session.home.path();
    m_program = m_session.startSettings(
        {}, {"XDG_DATA_HOME=" + home + "/.local/share", "XDG_DATA_DIRS=" + home + "/none",
                std::string("LC_ALL=") + start.locale});
    m_window = m_reader.window("Kyvar Quorvi");
    // The focus is on the titles of the tabs, or in the sheet that says that there is no mouse.
    const auto hasFocus = [&] {
        const std::string role = controlOf(m_reader.focus()).role();
        return role == (start.attached ? "page tab list" : "push button");
    };
    if (m_window.isNull() || thing(QString::fromUtf8(start.heardThen)).isNull() || !waitUntil(hasFocus))
        failToStart();
}

void Walk::failToStart() {
    QStringList windows;
    for (const Accessible& window : m_reader.windows())
        windows << QString::fromStdString(window.name());
    const QString focused = focus();
    const bool runs = m_program->isRunning();
    m_program->kill();
    qFatal(
        "the program does not show the mouse; the focus is on %s, the windows are \"%s\"; it %s, saying: %s",
        qPrintable(focused), qPrintable(windows.join(QLatin1String("\", \""))), runs ? "runs" : "has ended",
        m_program->readError().c_str());
    std::abort();
}

Walk::~Walk() {
    if (m_program->isRunning() && endBy(SIGTERM) != 0)
        qFatal("the program does not end well: %s", m_program->readError().c_str());
}

void Walk::press(const QStringList& keys) {
    m_monitor.forget();
    std::vector<std::string> arguments{"key"};
    for (const QString& key : keys)
        arguments.push_back(key.toStdString());
    if (!xdotool(std::move(arguments)))
        qFatal("the keys %s cannot be pressed", qPrintable(keys.join(QLatin1Char(' '))));
}

void Walk::type(const QString& text) const {
    if (!xdotool({"type", text.toStdString()}))
        qFatal("%s cannot be typed", qPrintable(text));
}

QString Walk::focus() {
    const Accessible thing = m_reader.focus();
    if (thing.isNull())
        return QStringLiteral("nothing");
    const Extents place = thing.extents();
    const bool seen = thing.is(AccessibleState::showing) && place.width > 0 && place.height > 0;
    return (seen && thing.is(AccessibleState::focused) ? QString() : QStringLiteral("out of sight: ")) +
           heard(thing);
}

QString Walk::focusBecomes(const QString& expected) {
    QString now;
    static_cast<void>(waitUntil([&] { return (now = focus()) == expected; }));
    return now;
}

QString Walk::focusAfter(const char* key, const QString& expected) {
    press({key});
    return focusBecomes(expected);
}

QString Walk::focusMovedBy(const char* key) {
    const Accessible before = m_reader.focus();
    press({key});
    static_cast<void>(waitUntil([&] { return !(m_reader.focus() == before); }));
    return focus();
}

bool Walk::moveTo(const QString& wanted, const char* key) {
    for (int moves = 0; moves < kMostMoves && focus() != wanted; ++moves)
        static_cast<void>(focusMovedBy(key));
    return focus() == wanted;
}

bool Walk::enterTab(Tab tab) {
    static const QStringList titles{"Buttons", "Sensitivity", "Profiles", "Macros", "Device"};
    return moveTo(QStringLiteral("page tab '%1'").arg(titles.at(tab)), "Right") &&
           controlOf(m_reader.focus()).role() == "page tab list" &&
           !focusMovedBy("Tab").startsWith(QLatin1String("page tab"));
}

bool Walk::chooseItem(const QString& title) {
    const QString item = QStringLiteral("menu item '%1'").arg(title);
    if (!waitUntil([this] { return m_reader.focus().role() == "menu item"; }) || !moveTo(item, "Down"))
        return false;
    press({"Return"});
    return true;
}

Accessible Walk::thing(const QString& wanted) const {
    Accessible found;
    static_cast<void>(waitUntil([&] {
        for (const Accessible& window : m_reader.windows())
            for (const Accessible& thing : everythingIn(window))
                if (found.isNull() && heard(thing) == wanted)
                    found = thing;
        return !found.isNull();
    }));
    return found;
}

bool Walk::perform(const QString& wanted, const char* action) const {
    return thing(wanted).perform(action);
}

bool Walk::openTab(const char* title) const {
    return perform(QStringLiteral("page tab '%1'").arg(title)) &&
           !thing(QStringLiteral("page tab list '%1'").arg(title)).isNull();
}

QStringList Walk::savedNames(const char* array, const QStringList& expected) const {
    QStringList names;
    static_cast<void>(waitUntil(
        [&] { return (names = namesIn(m_session.home.savedSettings().array(array))) == expected; }));
    return names;
}

plist::Dictionary Walk::savedItem(const char* array, std::size_t index) const {
    return m_session.home.savedSettings().array(array).dictionary(index);
}

std::optional<int> Walk::endBy(int signal) {
    m_program->signal(signal);
    return m_program->wait();
}

QStringList Walk::commandsUntil(const char* last) {
    QStringList commands;
    for (const std::string& command : m_monitor.commandsUntil(last))
        commands << QString::fromStdString(command);
    return commands;
}

bool Walk::helperIsTold(int profile) {
    return m_monitor.sees("KyPR " + std::to_string(profile));
}

plist::Dictionary settingsToWalkIn() {
    const auto tree = UserHome::defaults();
    for (const char16_t* name : {u"Game", u"Work"}) {
        const auto profile = UserHome::defaults().array("profiles").dictionary(0);
        profile.set("name", name);
        tree.array("profiles").append(profile);
    }
    tree.array("macros").append(macro(1, u"Hello"));
    tree.array("macros").append(macro(2, u"Greet"));
    return tree;
}

} // namespace quorvi::test
