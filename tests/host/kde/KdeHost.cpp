#include "host/kde/KdeHost.h"

#include <QRect>
#include <QTemporaryDir>

#include <cstdio>

#include "host/RecordedOpener.h"
#include "support/Files.h"
#include "support/Keyboard.h"
#include "support/WaitUntil.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

void install(const std::string& prefix, const std::string& component) {
    const auto done =
        runProgram({QUORVI_CMAKE, "--install", QUORVI_BUILD, "--prefix", prefix, "--component", component});
    if (done.exitCode != 0)
        qFatal("%s cannot be installed: %s", component.c_str(), done.error.c_str());
}

/// Where the panel is installed, for all tests of the program.
const fs::path& prefix() {
    static const QTemporaryDir folder;
    static const fs::path path = folder.path().toStdString();
    if (fs::is_empty(path)) {
        for (const char* component : {"panel", "desktop", "kde"})
            install(path, component);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        // The package's own plug-in is for another version of Qt, so that these hosts cannot load it.
        writeFile(path / "lib/kyvar-quorvi/KyvarQuorvi.prefPane/Contents/Linux/KyvarQuorvi.so", "another Qt");
#endif
        makeRecordedOpener(path / "opener");
    }
    return path;
}

/// Puts the first window in front that xdotool finds by that; waits for it.
void activateFirst(const std::vector<std::string>& what) {
    if (!xdotool({"windowactivate", "--sync", visibleWindow(what)}))
        qFatal("no window of %s can be put in front", what.back().c_str());
}

/// Clicks in the middle of it.
void clickOn(const Extents& place) {
    clickAt({place.left + place.width / 2, place.top + place.height / 2});
}

/// Where the window's contents are on the screen; nothing when xdotool cannot say.
std::optional<QRect> windowPlace(const std::string& window) {
    const auto said = xdotool({"getwindowgeometry", "--shell", window.substr(0, window.find('\n'))});
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    const auto shell = said ? said->find("X=") : std::string::npos;
    if (shell == std::string::npos ||
        std::sscanf(said->c_str() + shell, "X=%d Y=%d WIDTH=%d HEIGHT=%d", &x, &y, &width, &height) != 4)
        return std::nullopt;
    return QRect(x, y, width, height);
}

} // namespace

KdeHost::KdeHost(std::vector<std::string> display) : m_display(std::move(display)) {
    fs::create_directory(session.home.path() + "/runtime");
    fs::permissions(session.home.path() + "/runtime", fs::perms::owner_all);
    session.startHelper(); // what is told before there is one is not to be seen
}

std::vector<std::string> KdeHost::environment(const std::string& locale) const {
    const std::string ours = prefix();
    // The display may have nothing but the software renderer.
    std::vector<std::string> all{"QT_PLUGIN_PATH=" + (prefix() / QUORVI_MODULE_FOLDER "/../../..").native(),
        "XDG_DATA_DIRS=" + ours + "/share:/usr/share", "XDG_RUNTIME_DIR=" + session.home.path() + "/runtime",
        "PATH=" + ours + "/opener:" + qEnvironmentVariable("PATH").toStdString(), "LC_ALL=" + locale,
        "QT_QUICK_BACKEND=software"};
    all.insert(all.end(), m_display.begin(), m_display.end());
    return all;
}

ProgramResult KdeHost::run(const std::vector<std::string>& command, const std::string& locale) const {
    return runProgram(command, environment(locale));
}

void KdeHost::start(const std::vector<std::string>& command, const std::string& locale) {
    program = std::make_unique<ChildProcess>(command, environment(locale));
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

namespace {

/// How the panel is listed where it is found; without a search it is on a page of the list's.
QString foundBy(const QString& /*keyword*/) {
    return QStringLiteral("list item 'Kyvar Quorvi'");
}

/// The outermost of what holds the thing.
Accessible topOf(Accessible thing) {
    for (Accessible above = thing.parent(); above.extents().width > 0; above = thing.parent())
        thing = above;
    return thing;
}

} // namespace

void KdeHost::startAtOverview(const std::string& locale) {
    start({QUORVI_SYSTEMSETTINGS}, locale);
    if (m_display.empty())
        activate();
}

void KdeHost::openFound(const QString& keyword) const {
    clickInList(thing(foundBy(keyword)));
}

void KdeHost::leavePanel() const {
    goTo(kOtherModule);
}

void KdeHost::returnToPanel() const {
    goTo(kModule);
}

/// The list beside the pages is a tree of its own in the window's corner. It says where it has what as if
/// that were the corner of the screen, until it has heard where the window was placed.
void KdeHost::clickInList(const Accessible& wanted) const {
    const Extents place = wanted.extents();
    const Extents corner = topOf(wanted).extents();
    const Extents window = m_reader.windows().at(0).extents();
    if (place.width == 0)
        qFatal("what is to be clicked is not in the list");
    clickOn({window.left + place.left - corner.left, window.top + place.top - corner.top, place.width,
        place.height});
}

#else

namespace {
const QString kOpenModule = QStringLiteral("list item 'Input Devices'"); // the only module there

/// How the panel is listed where it is found.
QString foundBy(const QString& keyword) {
    return QStringLiteral("list item '%1'").arg(keyword);
}
} // namespace

void KdeHost::startAtOverview(const std::string& locale) {
    const auto folder = session.home.path() + "/.config";
    fs::create_directories(folder);
    writeFile(folder + "/systemsettingsrc", "[Main]\nActiveView=icon_mode\n");
    start({QUORVI_SYSTEMSETTINGS}, locale);
    activate();
}

void KdeHost::openFound(const QString& keyword) const {
    click(foundBy(keyword));
    click(kOpenModule);
}

void KdeHost::leavePanel() const {
    click(QStringLiteral("push button 'All Settings'"));
}

void KdeHost::returnToPanel() const {
    click(kOpenModule);
}

void KdeHost::clickInList(const Accessible& wanted) const {
    clickOn(wanted.extents());
}

#endif

void KdeHost::search(const std::string& words) const {
    Accessible field;
    const auto isText = [](const std::string& spoken) { return spoken.starts_with("text '"); };
    if (!waitUntil([&] { return !(field = find(isText)).isNull(); }))
        qFatal("System Settings has no field for searches");
    clickInList(field);
    if (!xdotool({"key", "ctrl+a"}) || !xdotool({"type", words}))
        qFatal("nothing can be typed into the search");
}

bool KdeHost::isFound(const QString& keyword, bool found) const {
    return waitUntil([&] { return shows(foundBy(keyword)) == found; });
}

void KdeHost::startAtPanel() {
    start({QUORVI_SYSTEMSETTINGS, kModule});
    if (!showsPanel())
        qFatal("System Settings does not show the panel");
}

void KdeHost::goTo(const std::string& module) const {
    if (run({QUORVI_SYSTEMSETTINGS, module}).exitCode != 0)
        qFatal("System Settings cannot be told to show %s", module.c_str());
}

void KdeHost::activate() const {
    activateFirst({"--pid", std::to_string(program->pid())});
}

void KdeHost::activateSheet(const std::string& title) const {
    activateFirst({"--name", "^" + title + "$"});
}

bool KdeHost::showsPanel() {
    if (thing(QStringLiteral("label 'Connected'")).isNull())
        return false;
    if (m_display.empty())
        activate();
    return true;
}

bool KdeHost::close() {
    return xdotool({"key", "alt+F4"}) && program->wait() == 0;
}

bool KdeHost::closeByTitleBar() {
    const auto window = xdotool({"getactivewindow"});
    const auto place = window ? windowPlace(*window) : std::nullopt;
    if (!place)
        return false;
    constexpr QPoint fromTheRightTop{
        -11, -30}; // openbox's last button closes; xdotool counts the frame twice
    clickAt(place->topRight() + fromTheRightTop);
    return program->wait() == 0;
}

bool KdeHost::quit() {
    const auto told = runProgram({"busctl", "--user", "call", "org.kde.systemsettings", "/MainApplication",
        "org.qtproject.Qt.QCoreApplication", "quit"});
    return told.exitCode == 0 && program->wait() == 0;
}

Accessible KdeHost::find(const std::function<bool(const std::string&)>& isSpokenSo) const {
    for (const Accessible& window : m_reader.windows())
        for (const Accessible& thing : everythingIn(window))
            if (isSpokenSo(test::spoken(thing)))
                return thing;
    return {};
}

Accessible KdeHost::find(const QString& spoken) const {
    return find([wanted = spoken.toStdString()](const std::string& other) { return other == wanted; });
}

Accessible KdeHost::thing(const QString& spoken) const {
    Accessible found;
    static_cast<void>(waitUntil([&] {
        found = find(spoken);
        return !found.isNull();
    }));
    return found;
}

void KdeHost::click(const QString& spoken) const {
    const Extents place = thing(spoken).extents();
    if (place.width == 0)
        qFatal("%s is not on the screen", qPrintable(spoken));
    clickOn(place);
}

void KdeHost::perform(const std::string& action, const QString& spoken) const {
    if (!thing(spoken).perform(action))
        qFatal("%s takes no %s", qPrintable(spoken), action.c_str());
}

std::string KdeHost::commands(const std::string& expected) {
    std::string told;
    const auto isAllTold = [&] {
        told.clear();
        for (const std::string& command : m_monitor.commands())
            if (!command.empty()) // the helper's own device list
                told += (told.empty() ? "" : " ") + command;
        return told == expected;
    };
    static_cast<void>(waitUntil(isAllTold));
    m_monitor.forget();
    return told;
}

std::string KdeHost::opened() const {
    return openedWith(session.home.path());
}

bool KdeHost::opensOwnHelp() const {
    return waitUntil([this] { return !opened().empty(); }) &&
           opened().find("KyvarQuorvi.prefPane/Contents/Resources/") != std::string::npos;
}

} // namespace quorvi::test
