// One machine after the other brought to the same settings.
#include <sys/stat.h>

#include "base/Unicode.h"
#include "history/Backup.h"
#include "model/Keys.h"
#include "plist/DeepCopy.h"
#include "plist/Writer.h"
#include "tools/ListeningHelper.h"
#include "tools/PrintedJson.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;
using plist::Dictionary;
using plist::Value;

/// What changes when a file is written or replaced.
struct FileState {
    ino_t inode;
    std::int64_t modified; ///< in nanoseconds
    bool operator==(const FileState&) const = default;
};

FileState stateOf(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
    return {status.st_ino, status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
}

/// The settings of the user, and others in the file "wanted".
class Apply : public ListeningHelper {
  protected:
    Apply() {
        changed.dictionary(keys::settings).set(keys::pollingRate, 125);
        const auto profile = changed.array(keys::profiles).dictionary(0);
        profile.dictionary(keys::buttons).set("04", assignment(112));
        name = toUtf8(profile.string(keys::name));
        writeWanted(changed);
    }
    static Dictionary assignment(int command) {
        const auto made = Dictionary::create();
        made.set(keys::command, command);
        return made;
    }
    static void writeTree(const fs::path& file, const Dictionary& tree) {
        const auto top = Dictionary::create();
        top.set("foreign", 7);
        top.set(keys::storage, tree);
        writeFile(file, plist::writeXml(top).value());
    }
    void writeWanted(const Dictionary& tree) const { writeTree(wanted, tree); }
    [[nodiscard]] std::size_t copies() const {
        std::error_code error;
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder / "state/kyvar-quorvi/history", error), {}));
    }

    std::string wanted = folder / "wanted.plist";
    Dictionary before = treeIn(settings);
    Dictionary changed = plist::mutableDeepCopy(before);
    std::string name;
};

TEST_F(Apply, HasTheUsersFileHoldTheSettings) {
    beTheHelper();
    expectDone({"apply", wanted}, "changed\n");
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
    EXPECT_EQ(news(), std::vector{profileIndex()});
}

TEST_F(Apply, WritesNothingAndTellsNobodyWhenNothingDiffers) {
    beTheHelper();
    expectDone({"apply", wanted, settings}, "changed\n");
    const auto state = stateOf(settings);
    const auto told = news();
    expectDone({"apply", wanted}, "unchanged\n");
    expectDone({"apply", wanted, settings}, "unchanged\n");
    expectJson(
        {"apply", "--json", wanted}, R"({"changed":false,"check":false,"differences":[],"leftOut":[]})");
    EXPECT_EQ(stateOf(settings), state);
    EXPECT_EQ(news(), told);
    EXPECT_EQ(copies(), 1U);
}

TEST_F(Apply, TakesNoDifferenceOfWhatMenusSaidForOne) {
    const auto same = plist::mutableDeepCopy(before);
    same.set(keys::firmware, 0x0300);
    const plist::Array all = same.array(keys::profiles);
    for (const Value& profile : all.items())
        profile.dictionary().dictionary(keys::buttons).dictionary("01").set(keys::string, u"Linksklick");
    writeWanted(same);
    expectDone({"apply", wanted}, "unchanged\n");
}

TEST_F(Apply, OnlySaysWhatItWouldDoWhenItIsToCheck) {
    beTheHelper();
    const auto state = stateOf(settings);
    expectDone({"apply", "--check", wanted, settings},
        "would change\n\tButton 4 of “" + name + "”: Back → Copy\n\tPolling rate: 1000 Hz → 125 Hz\n");
    const auto printed = printedJson({"apply", wanted, "--check", "--json"});
    EXPECT_TRUE(printed["changed"].toBool());
    EXPECT_TRUE(printed["check"].toBool());
    EXPECT_EQ(
        printed["differences"].toArray().last().toString().toStdString(), "Polling rate: 1000 Hz → 125 Hz");
    EXPECT_EQ(stateOf(settings), state);
    EXPECT_TRUE(news().empty());
    EXPECT_EQ(copies(), 0U);
    writeWanted(before);
    expectDone({"apply", "--check", wanted}, "unchanged\n");
}

TEST_F(Apply, SaysInJsonWhatItChanged) {
    const auto printed = printedJson({"--json", "apply", wanted});
    EXPECT_TRUE(printed["changed"].toBool());
    EXPECT_EQ(printed["differences"].toArray().size(), 2);
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
}

TEST_F(Apply, LeavesTheKeysOfOthersAlone) {
    const auto other = folder / "other.plist";
    writeTree(other, before);
    expectDone({"apply", wanted, other}, "changed\n");
    const auto top = plist::readPropertyListFile(other).value.dictionary();
    EXPECT_EQ(top.integer("foreign"), 7);
    EXPECT_EQ(Value(top.dictionary(keys::storage)), Value(changed));
}

TEST_F(Apply, KeepsACopyOfTheUsersSettingsBeforeAndOfNoOtherFile) {
    const auto other = folder / "other.plist";
    writeTree(other, before);
    expectDone({"apply", wanted, other}, "changed\n");
    EXPECT_EQ(copies(), 0U);
    expectDone({"apply", wanted}, "changed\n");
    ASSERT_EQ(copies(), 1U);
    const auto copy = readBackup(fs::directory_iterator(folder / "state/kyvar-quorvi/history")->path());
    EXPECT_EQ(Value(copy.backup.tree), Value(before));
}

TEST_F(Apply, TakesABackupOfEverything) {
    const auto file = folder / "all.quorviSettings";
    ASSERT_FALSE(writeBackup(backupOf(changed), file));
    expectDone({"apply", file}, "changed\n");
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
    expectDone({"apply", file}, "unchanged\n");
}

TEST_F(Apply, RefusesWhatIsNoBackupOfEverything) {
    const auto file = folder / "one.quorviSettings";
    ASSERT_FALSE(writeBackup(backupOfProfile(changed, 0), file));
    expectRefused({"apply", file}, file.string() + ": it holds a single profile, which import adds");
    fs::copy_file(file, folder / "other-name");
    EXPECT_EQ(quorvictl({"apply", folder / "other-name"}).exitCode, 1);
    fs::copy_file(wanted, file, fs::copy_options::overwrite_existing);
    EXPECT_EQ(quorvictl({"apply", file}).exitCode, 1);
    EXPECT_EQ(Value(treeIn(settings)), Value(before));
}

TEST_F(Apply, RefusesWhatCheckRefuses) {
    const auto expectRefusedAlike = [&] {
        const auto state = stateOf(settings);
        const auto checked = quorvictl({"check", wanted});
        ASSERT_EQ(checked.exitCode, 1);
        for (const bool isCheck : {false, true}) {
            const auto applied =
                isCheck ? quorvictl({"apply", wanted, "--check"}) : quorvictl({"apply", wanted});
            EXPECT_EQ(applied.exitCode, 1);
            EXPECT_EQ(applied.error, checked.error);
            EXPECT_EQ(applied.output, "");
        }
        EXPECT_EQ(stateOf(settings), state);
    };
    changed.set(keys::version, 5);
    writeWanted(changed);
    expectRefusedAlike();
    changed.set(keys::version, 6);
    changed.set(keys::profiles, plist::Array::create());
    writeWanted(changed);
    expectRefusedAlike();
    writeFile(wanted, "nothing");
    expectRefusedAlike();
    fs::remove(wanted);
    expectRefusedAlike();
}

// Such a profile would not be taken over, and another machine's settings be gone.
TEST_F(Apply, RefusesSettingsOfWhichNoProfileIsWhole) {
    const plist::Array all = changed.array(keys::profiles);
    for (const Value& profile : all.items())
        profile.dictionary().remove(keys::ledState);
    writeWanted(changed);
    ASSERT_EQ(quorvictl({"check", wanted}).exitCode, 0);
    EXPECT_EQ(quorvictl({"apply", wanted}).exitCode, 1);
    EXPECT_EQ(Value(treeIn(settings)), Value(before));
}

TEST_F(Apply, SaysWhatThereIsNoRoomForAndIsContentWithTheRest) {
    const auto result = quorvictl({"apply", vectorPath("case-000.plist"), "--json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.error.find("left out: profile 6 ("), std::string::npos) << result.error;
    const auto printed = QJsonDocument::fromJson(QByteArray::fromStdString(result.output)).object();
    EXPECT_TRUE(printed["leftOut"].toArray()[0].toString().startsWith("profile 6 (")) << result.output;
    EXPECT_EQ(treeIn(settings).array(keys::profiles).size(), 5U);
    const auto again = quorvictl({"apply", vectorPath("case-000.plist")});
    EXPECT_EQ(again.output, "unchanged\n");
    EXPECT_EQ(again.error, result.error);
}

TEST_F(Apply, MakesTheSettingsOfAUserWhoHasNone) {
    beTheHelper();
    fs::remove_all(folder / "Library");
    const auto check = quorvictl({"apply", "--check", wanted});
    EXPECT_TRUE(check.output.starts_with("would change\n\tProfile “")) << check.output;
    EXPECT_FALSE(fs::exists(folder / "Library"));
    expectDone({"apply", wanted}, "changed\n");
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
    EXPECT_EQ(modeOf(settings), 0600U);
    EXPECT_EQ(news().size(), 1U);
    EXPECT_EQ(copies(), 0U);
}

TEST_F(Apply, KeepsAFileThatIsNoPropertyListBesideTheNewOne) {
    writeFile(settings, "somebody's own");
    expectDone({"apply", wanted}, "changed\n");
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
    std::vector<std::string> others;
    for (const auto& entry : fs::directory_iterator(settings.parent_path()))
        if (entry.path() != settings)
            others.push_back(readFile(entry.path()));
    EXPECT_EQ(others, std::vector<std::string>{"somebody's own"});
}

TEST_F(Apply, WritesWithoutACopyWhenThereIsNoPlaceForOne) {
    writeFile(folder / "state", "in the way");
    const auto result = quorvictl({"apply", wanted});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "changed\n");
    EXPECT_NE(result.error.find("no copy of the earlier settings"), std::string::npos) << result.error;
    EXPECT_EQ(Value(treeIn(settings)), Value(changed));
}

TEST_F(Apply, SaysWhatKeepsTheFileFromBeingWritten) {
    const auto blocked = folder / "folder.plist";
    fs::create_directory(blocked);
    expectRefused({"apply", wanted, blocked}, blocked.string() + ": it cannot be written: Is a directory");
}

TEST_F(Apply, IsMisusedByOtherOptionsAndFiles) {
    expectMisused({"apply"}, "apply takes FILE [SETTINGS.plist] [--check]");
    expectMisused({"apply", "--check"}, "apply takes FILE [SETTINGS.plist] [--check]");
    expectMisused({"apply", "a", "b", "c"}, "apply takes FILE [SETTINGS.plist] [--check]");
    expectMisused({"apply", "a", "--dry"}, "apply has no option --dry");
}

} // namespace
} // namespace quorvi::test
