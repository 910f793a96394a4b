#include "pane/PaneFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include "loginitems/AutostartLoginItemStore.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "pane/EventPatch.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi::test {

namespace {

constexpr int kPatienceMs = 5000;

plist::Dictionary dictionary(std::initializer_list<std::pair<const char*, plist::Value>> entries) {
    auto result = plist::Dictionary::create();
    for (const auto& [key, value] : entries)
        result.set(key, value);
    return result;
}

plist::Array array(std::initializer_list<plist::Value> items) {
    auto result = plist::Array::create();
    for (const auto& item : items)
        result.append(item);
    return result;
}

plist::Dictionary stage(std::int32_t dpi) {
    return dictionary({{"dpix", dpi}, {"dpiy", dpi}, {"independentxy", false}});
}

plist::Dictionary profile(const char16_t* name, std::int32_t defaultStage) {
    return dictionary({{"name", name}, {"ledstate", 3}, {"defaultstage", defaultStage},
        {"stages", array({stage(400), stage(800), stage(1600)})},
        {"buttons", dictionary({{"01", dictionary({{"command", 1}})}, {"02", dictionary({{"command", 2}})}})},
        {"driver", dictionary({{"autoswitch", false}, {"application", u""}, {"acceleration", 1.0F},
                       {"enableaccel", false}, {"sensitivityosd", true}, {"profileosd", true}})}});
}

plist::Dictionary macro(const char16_t* name, std::int32_t id) {
    return dictionary({{"macroid", id}, {"name", name}, {"delay", 0},
        {"steps", array({dictionary({{"command", 1}, {"argument", 4}, {"delay", 50}}),
                      dictionary({{"command", 0}, {"argument", 4}, {"delay", 0}})})}});
}

} // namespace

PaneFixture::PaneFixture(const PaneOptions& options) {
    if (options.helper)
        helper = std::make_unique<RecordingHelper>();
    auto recording = std::make_unique<RecordingWorkspace>(opened);
    workspace = recording.get();
    workspace->canLaunch = options.canLaunch;
    const auto executableOf = [](const std::string& path) { return path + "/program"; };
    pane = std::make_unique<KyvarQuorviPane>(PaneServices{
        .bundle = Bundle(options.bundlePath),
        .homeFolder = home.path().toStdString(),
        .files = options.files,
        .historyFolder = options.keepsCopies ? home.path().toStdString() + "/history" : std::string(),
        .bus = options.bus ? EventBus::connect() : nullptr,
        .workspace = std::move(recording),
        .loginItems = std::make_unique<AutostartLoginItemStore>(
            home.filePath(QStringLiteral("autostart")).toStdString(), executableOf),
        .watchKeyboardLayout = options.watchKeyboardLayout,
        .clock = options.clock,
        .callLater = options.callLater,
    });
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    layout->addWidget(pane->mainView());
}

PaneFixture::~PaneFixture() {
    if (pane && gPatchedPane == pane.get())
        pane->willUnselect();
}

plist::Dictionary PaneFixture::sampleTree() {
    return dictionary({{"version", 6}, {"firmware", 0x0105},
        {"settings", dictionary({{"profileid", 1}, {"pollingrate", 500}, {"stage", 2}, {"dpix", 800},
                         {"dpiy", 800}, {"independentxy", false}})},
        {"profiles", array({profile(u"Desk", 2), profile(u"Game", 3)})},
        {"macros", array({macro(u"Hello", 0), macro(u"World", 3)})}});
}

std::filesystem::path PaneFixture::settingsFile() const {
    return userSettingsPath(home.path().toStdString());
}

void PaneFixture::writeSettings(const plist::Dictionary& tree) const {
    if (!saveSettings(tree, settingsFile()))
        qFatal("the settings cannot be written");
}

plist::Dictionary PaneFixture::savedSettings() const {
    return getDefaultSettings(settingsFile());
}

QStringList PaneFixture::autostartEntries() const {
    return QDir(home.filePath(QStringLiteral("autostart"))).entryList(QDir::Files);
}

void PaneFixture::load() {
    window->show();
    pane->mainViewDidLoad();
    window->activateWindow();
    // QTest::qWaitForWindowActive() would not do under Wayland, where no program can activate a window.
    if (!QTest::qWaitFor([this] { return window->isActiveWindow(); }, kPatienceMs))
        qFatal("the window does not become active");
}

void PaneFixture::select() {
    load();
    pane->didSelect();
}

void PaneFixture::connectDevices(std::uint16_t count) {
    helper->sendDeviceList(count);
    if (!QTest::qWaitFor(
            [&] { return pane->hasDevice() == (count != 0) && pane->deviceConfig(); }, kPatienceMs))
        qFatal("the device list has no effect");
    QCoreApplication::processEvents();
}

void PaneFixture::openWith(const plist::Dictionary& tree) {
    writeSettings(tree);
    select();
    connectDevices(1);
    if (!QTest::qWaitFor([&] { return helper->commands().contains(QStringLiteral("KyRO 1")); }, kPatienceMs))
        qFatal("the panel does not report that it is shown");
    helper->forget();
}

QString PaneFixture::text(const char* label) const {
    return find<QLabel>(label)->text();
}

bool PaneFixture::isEnabled(const char* control) const {
    return find<QWidget>(control)->isEnabled();
}

void PaneFixture::click(const char* control) const {
    clickButton(find<QAbstractButton>(control));
}

void PaneFixture::selectTab(int index) const {
    find<QTabWidget>("quorviTabsMain")->setCurrentIndex(index);
    QCoreApplication::processEvents();
}

void PaneFixture::selectRow(const char* table, int row) const {
    auto* view = find<KyvarQuorviTableView>(table);
    const QRect cell = view->visualRect(view->model()->index(row, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
}

int PaneFixture::selectedRow(const char* table) const {
    return find<KyvarQuorviTableView>(table)->selectedRow();
}

bool PaneFixture::commandsBecome(const QStringList& expected) const {
    if (QTest::qWaitFor([&] { return helper->commands() == expected; }, kPatienceMs))
        return true;
    qWarning() << "commands are" << helper->commands() << "and should be" << expected;
    return false;
}

} // namespace quorvi::test
