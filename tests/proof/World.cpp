#include "proof/World.h"

#include <QDir>
#include <QFile>

#include "history/Backup.h"
#include "model/ConfigFile.h"
#include "model/ConfigFileStore.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "plist/DeepCopy.h"
#include "plist/Reader.h"
#include "proof/MessageOrder.h"
#include "proof/Rules.h"
#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

constexpr const char* kForeignKey = "another program's";
constexpr const char* kCountKey = "count of the second writer";
constexpr unsigned kSavesOfCount = 15;

/// A recording hears of time what a hurried user makes of it.
constexpr double kSecondsOfLook = 0.037;

plist::Dictionary grownTree(int profiles, int macros) {
    auto tree = PaneFixture::sampleTree();
    const auto grow = [](const plist::Array& items, int count) {
        while (int(items.size()) < count) {
            const auto copy = plist::deepCopy(items.value(0)).dictionary();
            const auto number = static_cast<std::int32_t>(items.size()) + 10;
            copy.set(keys::name, QStringLiteral("Copy %1").arg(number).toStdU16String());
            if (copy.has(keys::macroId))
                copy.set(keys::macroId, number);
            items.append(copy);
        }
    };
    grow(tree.array(keys::profiles), profiles);
    grow(tree.array(keys::macros), macros);
    return tree;
}

void put(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
}

void putItem(const plist::Dictionary& item, const QString& path) {
    if (writeItemFile(item, path.toStdString()))
        qFatal("%s cannot be written", qPrintable(path));
}

void putBackup(const Backup& backup, const QString& path) {
    if (writeBackup(backup, path.toStdString()))
        qFatal("the backup cannot be written");
}

} // namespace

World::World() : m_fixture({.files = m_witness, .clock = [this] { return m_clock += kSecondsOfLook; }}) {
    m_other.resize(200, 100);
    putFiles();
    m_fixture.writeSettings(PaneFixture::sampleTree());
    m_witness.saved = [this] { wasSaved(); };
    const auto sometimes = [this](bool askingNobody) {
        return m_second() % kSavesOfCount == 0 && countInFile(askingNobody);
    };
    m_witness.amidSave = [sometimes] { return sometimes(false); };
    m_witness.beforeExchange = [sometimes] { return sometimes(true); };
    m_fixture.load();
    m_other.show();
    show();
}

void World::putFiles() const {
    const auto at = [&](const char* name) { return m_fixture.home.filePath(QLatin1String(name)); };
    const auto tree = grownTree(3, 3);
    putItem(tree.array(keys::profiles).dictionary(1), at("good.quorviProfile"));
    putItem(tree.array(keys::macros).dictionary(0), at("good.quorviMacro"));
    const auto profile = plist::mutableDeepCopy(tree.array(keys::profiles).dictionary(2));
    const auto assignment = plist::Dictionary::create();
    assignment.set(keys::command, 65);
    assignment.set(keys::param1, 69);
    profile.dictionary(keys::buttons).set(keys::button(3), assignment);
    putItem(profile, at("lost.quorviProfile"));
    putItem(plist::Dictionary::create(), at("empty.quorviProfile"));
    putItem(plist::Dictionary::create(), at("empty.quorviMacro"));
    putBackup(backupOf(tree), at("good.quorviSettings"));
    putBackup(backupOfProfile(tree, 1), at("one.quorviSettings"));
    put(at("text.quorviSettings"), "this is none");
    put(at("text.quorviProfile"), "this is none");
    put(at("text.quorviMacro"), "bplist00");
    put(at("application.desktop"),
        "[Desktop Entry]\nType=Application\nName=Some Application\nExec=/bin/true %U\n");
}

QString World::someFile(const QString& suffix, std::mt19937& random) const {
    const QDir folder(m_fixture.home.path());
    const QStringList files = folder.entryList({QStringLiteral("*.") + suffix}, QDir::Files, QDir::Name);
    if (files.isEmpty() || random() % 10 == 0)
        return folder.filePath(QStringLiteral("missing.") + suffix);
    return folder.filePath(files.at(int(random() % std::size_t(files.size()))));
}

QString World::exportTarget(const QString& suffix, std::mt19937& random) const {
    return m_fixture.home.filePath(QStringLiteral("exported %1.%2").arg(random() % 4).arg(suffix));
}

void World::sendDeviceList(std::uint16_t count) {
    if (!m_shown || isListOnItsWay())
        return;
    m_list = std::async(std::launch::async, [count] {
        DeviceList list;
        list.count = count;
        const auto bus = EventBus::connect();
        ProcessSerialNumber panel;
        // The answer comes when the list was taken.
        if (bus && bus->findProcessByName("KyvarQuorviPane", &panel) == noErr)
            static_cast<void>(bus->send(panel, makeDeviceListEvent(list), SendMode::waitReply));
    });
}

bool World::isListOnItsWay() {
    if (!m_list.valid())
        return false;
    if (m_list.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return true;
    m_list.get();
    return false;
}

void World::hide() {
    if (!std::exchange(m_shown, false))
        return;
    m_fixture.pane->willUnselect();
    m_fixture.window->hide();
    m_other.activateWindow(); // where the keyboard goes on any display
}

void World::show() {
    if (std::exchange(m_shown, true))
        return;
    m_fixture.window->show();
    m_fixture.window->activateWindow();
    m_fixture.pane->didSelect();
}

void World::activateOtherWindow() {
    m_other.activateWindow();
}

QString World::changeFile(std::mt19937& random) {
    const auto file = m_fixture.settingsFile();
    const QString path = QString::fromStdString(file.string());
    m_countIsThere = false;
    m_wasJoined = true;
    switch (random() % 7) {
    case 0:
        QFile::remove(path);
        m_foreign = plist::Value();
        return QStringLiteral("removed");
    case 1:
        put(path, "<plist><dict><key>quorvi</key><dict>");
        m_foreign = plist::Value();
        return QStringLiteral("cut");
    case 2: {
        const auto tree = PaneFixture::sampleTree();
        tree.set(keys::version, 5);
        m_fixture.writeSettings(tree);
        return QStringLiteral("of an older version");
    }
    case 3:
        m_fixture.writeSettings(grownTree(limits::profiles, limits::macros));
        return QStringLiteral("full");
    case 4:
        m_fixture.writeSettings(grownTree(1, 0));
        return QStringLiteral("small");
    default: {
        m_fixture.writeSettings(grownTree(3, 5));
        m_foreign = plist::Value(static_cast<std::int32_t>(random() % 1000));
        const auto top = plist::readPropertyListFile(file).value.dictionary();
        top.set(kForeignKey, m_foreign);
        putItem(top, path);
        return QStringLiteral("shared with another program");
    }
    }
}

plist::Dictionary World::savedTop() const {
    return plist::readPropertyListFile(m_fixture.settingsFile()).value.dictionary();
}

bool World::countInFile(bool askingNobody) {
    const auto count = [this](const plist::Dictionary& tree) {
        if (!KyvarValidateConfig(tree, limits::minimumVersion))
            return false; // nobody's settings
        tree.set(kCountKey, m_count + 1);
        return true;
    };
    if (askingNobody) {
        const auto top = savedTop();
        if (!count(top.dictionary(keys::storage)))
            return false;
        putItem(top, QString::fromStdString(m_fixture.settingsFile().string()));
    } else if (changeConfigFile(keys::storage, m_fixture.settingsFile(), count) != 0) {
        return false;
    }
    ++m_count;
    m_countIsThere = m_wasJoined = true;
    return true;
}

void World::wasSaved() {
    ++m_saves;
    const auto top = savedTop();
    const auto tree = top.dictionary(keys::storage);
    // What others have written comes into the panel's tree when the save is over.
    const bool isPanels = top.value(keys::storage) == asWritten(m_fixture.pane->deviceConfig());
    if (!isPanels && !m_wasJoined)
        m_complaints << QStringLiteral("the file is not what the panel has");
    m_expected << (m_wasJoined ? kAnyProfile : QStringLiteral("KyPR %1").arg(m_fixture.pane->profileIndex()));
    m_wasJoined = false;
    if (m_countIsThere && tree.integer(kCountKey) != m_count) {
        if (!m_mayBeReplaced)
            m_complaints
                << QStringLiteral("the second writer's %1 is %2").arg(m_count).arg(tree.integer(kCountKey));
        m_countIsThere = m_mayBeReplaced = false;
    }
    if (!(top.value(kForeignKey) == m_foreign))
        m_complaints << QStringLiteral("what another program keeps in the file is gone");
}

QString World::brokenMessages() {
    const QString told = QStringLiteral("KyPR ");
    // The last one is that of hiding, or the save after it.
    const bool came = waitUntil([&] {
        const QStringList commands = m_fixture.helper->commands();
        return commands.contains(QStringLiteral("KyRO 0")) &&
               commands.filter(told).size() >= m_expected.size();
    });
    const QStringList commands = m_fixture.helper->commands();
    QString broken = brokenOrder(commands, m_expected);
    if (!broken.isEmpty() || !came)
        broken += QStringLiteral("; the last of what the helper was told: ") +
                  commands.mid(commands.size() - 20).join(QLatin1String(", "));
    m_fixture.helper->forget();
    m_expected.clear();
    return broken;
}

} // namespace quorvi::test
