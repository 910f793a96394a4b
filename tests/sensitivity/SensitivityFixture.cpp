#include "sensitivity/SensitivityFixture.h"

#include <QAbstractButton>
#include <QFile>

#include <sys/stat.h>

#include "support/Tabs.h"

namespace quorvi::test {

namespace {

QByteArray contentOf(const std::filesystem::path& path) {
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

int RecordingCalls::renameat(int folder, const char* from, const char* to) {
    log << QStringLiteral("rename");
    return FileCalls::renameat(folder, from, to);
}

int RecordingCalls::renameat2(int folder, const char* from, const char* to, unsigned flags) {
    log << QStringLiteral("rename");
    return FileCalls::renameat2(folder, from, to, flags);
}

int RecordingCalls::fsync(int file) {
    struct stat status = {};
    const bool folder = ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    log << (folder ? QStringLiteral("sync folder") : QStringLiteral("sync file"));
    return FileCalls::fsync(file);
}

SensitivityFixture::SensitivityFixture(RecordingCalls* calls)
    : PaneFixture(calls ? PaneOptions{.files = *calls} : PaneOptions{}) {}

void SensitivityFixture::open(const plist::Dictionary& tree) {
    openWith(tree);
    selectTab(kSensitivityTab);
    m_file = contentOf(settingsFile());
}

plist::Dictionary SensitivityFixture::separateAxes(int x, int y) {
    auto tree = sampleTree();
    const auto stage = tree.array("profiles").dictionary(0).array("stages").dictionary(1);
    for (const auto& holder : {stage, tree.dictionary("settings")}) {
        holder.set("dpix", x);
        holder.set("dpiy", y);
        holder.set("independentxy", true);
    }
    return tree;
}

void SensitivityFixture::press(const char* control, Qt::Key key) const {
    auto* widget = find<QWidget>(control);
    if (!widget->isEnabled() || !widget->isVisible())
        qFatal("%s takes no keys", control);
    QTest::keyClick(widget, key);
}

plist::Dictionary SensitivityFixture::savedSettingsPart() const {
    return savedSettings().dictionary("settings");
}

plist::Array SensitivityFixture::savedStages() const {
    return savedSettings().array("profiles").dictionary(0).array("stages");
}

plist::Dictionary SensitivityFixture::savedDriver() const {
    return savedSettings().array("profiles").dictionary(0).dictionary("driver");
}

QString SensitivityFixture::savedResolution() const {
    const auto settings = savedSettingsPart();
    const QString stage = resolutionOf(savedStages().dictionary(std::size_t(settings.integer("stage") - 1)));
    const QString inForce = resolutionOf(settings);
    return stage == inForce ? stage : QStringLiteral("stage %1, settings %2").arg(stage, inForce);
}

QStringList SensitivityFixture::savedResolutions() const {
    const auto stages = savedStages();
    QStringList result;
    for (const auto& stage : stages.items())
        result << resolutionOf(stage.dictionary());
    return result;
}

bool SensitivityFixture::announced(int saves) const {
    QStringList expected;
    for (int save = 0; save < saves; ++save)
        expected << QStringLiteral("KyPR 0");
    const bool result = commandsBecome(expected);
    helper->forget();
    return result;
}

bool SensitivityFixture::nothingHappened() {
    QCoreApplication::processEvents();
    const QByteArray before = std::exchange(m_file, contentOf(settingsFile()));
    return m_file == before && helper->commands().isEmpty();
}

QString resolutionOf(const plist::Dictionary& holder) {
    return QStringLiteral("%1/%2%3")
        .arg(holder.integer("dpix"))
        .arg(holder.integer("dpiy"))
        .arg(holder.boolean("independentxy") ? QStringLiteral(" separate") : QString());
}

void inStagesSheet(const PaneFixture& fixture, std::function<void(QDialog*)> action) {
    whenSheetIsUp(fixture.window.get(), "quorviPanelStages", [action = std::move(action)](QDialog* sheet) {
        action(sheet);
        if (QTest::currentTestFailed())
            sheet->reject(); // what waits for the sheet's end would wait for ever
    });
    fixture.click("quorviButtonEditStages");
}

void endSheet(QDialog* sheet, bool ok) {
    clickButton(outlet<QAbstractButton>(sheet, ok ? "quorviStagesButtonOK" : "quorviStagesButtonCancel"));
}

} // namespace quorvi::test
