#include "applications/ApplicationInformation.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include <sys/stat.h>

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

namespace quorvi {

/// So that a difference is printed readably.
void PrintTo(const ApplicationInformation& information, std::ostream* out) {
    for (const auto& text :
        {information.name, information.identifier, information.signature, information.executable})
        *out << "«" << QString::fromStdU16String(text).toStdString() << "» ";
}

static bool operator==(const ApplicationInformation& a, const ApplicationInformation& b) {
    return a.name == b.name && a.identifier == b.identifier && a.signature == b.signature &&
           a.executable == b.executable;
}

} // namespace quorvi

namespace quorvi::test {

namespace {

using Information = ApplicationInformation;

std::string string(const std::string& key, const std::string& value) {
    return "<key>" + key + "</key><string>" + value + "</string>";
}

class ApplicationInformationTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::optional<Information> informationOn(const std::string& name) const {
        return applicationInformation(QString::fromStdString(m_folder.path(name)));
    }
    [[nodiscard]] std::optional<Information> informationOnBundle(
        const std::string& name, const std::string& keys) const {
        m_folder.write(name + "/Contents/Info.plist",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + keys +
                "</dict></plist>\n");
        return informationOn(name);
    }
    [[nodiscard]] std::optional<Information> informationOnEntry(
        const std::string& name, const std::string& keys) const {
        m_folder.write(name, "[Desktop Entry]\nType=Application\n" + keys);
        return informationOn(name);
    }

    TemporaryFolder m_folder;
    EnvironmentVariable m_home{"XDG_DATA_HOME", m_folder.path("home")};
    EnvironmentVariable m_folders{"XDG_DATA_DIRS", m_folder.path("local") + ":" + m_folder.path("system")};
};

} // namespace

TEST_F(ApplicationInformationTest, ABundleGivesWhatItsInfoPlistSays) {
    EXPECT_EQ(informationOnBundle("X.app",
                  string("CFBundleName", "Größe 日本") + string("CFBundleIdentifier", "com.example.Editor") +
                      string("CFBundleSignature", "Edit") + string("CFBundleExecutable", "editor")),
        (Information{u"Größe 日本", u"com.example.Editor", u"Edit", u"editor"}));
}

TEST_F(ApplicationInformationTest, ABundleWithoutANameHasItsFoldersWithoutTheExtension) {
    const std::string executable = string("CFBundleExecutable", "x");
    EXPECT_EQ(informationOnBundle("My Editor.app", executable), (Information{u"My Editor", u"", u"", u"x"}));
    EXPECT_EQ(informationOn("My Editor.app//"), (Information{u"My Editor", u"", u"", u"x"}));
    EXPECT_EQ(informationOnBundle("My Editor", executable), (Information{u"My Editor", u"", u"", u"x"}));
    EXPECT_EQ(informationOnBundle("Editor.APP", executable), (Information{u"Editor.APP", u"", u"", u"x"}));
    EXPECT_EQ(informationOnBundle("a.app.app", executable), (Information{u"a.app", u"", u"", u"x"}));
    EXPECT_EQ(informationOnBundle(".app", executable), (Information{u".app", u"", u"", u"x"}));
    // A number is no name.
    EXPECT_EQ(informationOnBundle("N.app", executable + "<key>CFBundleName</key><integer>5</integer>"),
        (Information{u"N", u"", u"", u"x"}));
}

TEST_F(ApplicationInformationTest, ANameGoesWithoutTheExtensionAndAnExecutableKeepsIt) {
    EXPECT_EQ(informationOnBundle(
                  "X.app", string("CFBundleName", "Ed.app") + string("CFBundleExecutable", "ed.app")),
        (Information{u"Ed", u"", u"", u"ed.app"}));
    EXPECT_EQ(informationOn("tool.app"), (Information{u"tool", u"", u"", u"tool.app"}));
    EXPECT_EQ(informationOnEntry("e.desktop", "Name=Ed.app\nExec=/bin/ed.app\n"),
        (Information{u"Ed", u"e", u"", u"ed.app"}));
}

TEST_F(ApplicationInformationTest, FourQuestionMarksAreNoSignature) {
    const std::string executable = string("CFBundleExecutable", "x");
    EXPECT_EQ(informationOnBundle("A.app", executable + string("CFBundleSignature", "????"))->signature, u"");
    EXPECT_EQ(
        informationOnBundle("B.app", executable + string("CFBundleSignature", "???"))->signature, u"???");
    EXPECT_EQ(informationOnBundle("C.app", executable)->signature, u"");
}

TEST_F(ApplicationInformationTest, ABundleWithoutNameOrExecutableIsNothing) {
    EXPECT_EQ(informationOnBundle("A.app", string("CFBundleName", "A")), std::nullopt);
    EXPECT_EQ(informationOnBundle("B.app", string("CFBundleExecutable", "")), std::nullopt);
    EXPECT_EQ(informationOnBundle("C.app", string("CFBundleName", "") + string("CFBundleExecutable", "x")),
        std::nullopt);
    std::filesystem::create_directory(m_folder.path("Empty.app"));
    EXPECT_EQ(informationOn("Empty.app"), std::nullopt);
    m_folder.write("Broken.app/Contents/Info.plist", "<plist><dict>");
    EXPECT_EQ(informationOn("Broken.app"), std::nullopt);
    std::filesystem::create_directories(m_folder.path("Fifo.app/Contents"));
    ASSERT_EQ(::mkfifo(m_folder.path("Fifo.app/Contents/Info.plist").c_str(), 0600), 0);
    EXPECT_EQ(informationOn("Fifo.app"), std::nullopt);
}

TEST_F(ApplicationInformationTest, AnEntryGivesItsUntranslatedNameItsIdAndItsProgram) {
    const EnvironmentVariable language("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(informationOnEntry("system/applications/org.example.Editor.desktop",
                  "Name[de]=Bearbeiter\nName=Größe 日本\nExec=\"/opt/My App/ed\" --new %U\n"),
        (Information{u"Größe 日本", u"org.example.Editor", u"", u"ed"}));
}

TEST_F(ApplicationInformationTest, EscapesOfAnEntryAreResolved) {
    EXPECT_EQ(informationOnEntry("e.desktop", "Name=\\sTwo\\nlines\\\\\\s\nExec=\"a\\\\\\\\b \\\\$c\"\n"),
        (Information{u" Two\nlines\\ ", u"e", u"", u"a\\b $c"}));
}

TEST_F(ApplicationInformationTest, AnEntrysProgramIsFoundBehindEnv) {
    EXPECT_EQ(informationOnEntry("e.desktop", "Name=E\nExec=env A=B /usr/bin/prog %f\n"),
        (Information{u"E", u"e", u"", u"prog"}));
}

TEST_F(ApplicationInformationTest, AnIdIsThePathBelowAFolderOfApplications) {
    const std::string keys = "Name=E\nExec=e\n";
    EXPECT_EQ(informationOnEntry("home/applications/a.desktop", keys)->identifier, u"a");
    EXPECT_EQ(informationOnEntry("local/applications/kde/b.desktop", keys)->identifier, u"kde-b");
    EXPECT_EQ(informationOnEntry("system/applications/x/y-z/c.d.desktop", keys)->identifier, u"x-y-z-c.d");
    EXPECT_EQ(informationOnEntry("elsewhere/kde/b.desktop", keys)->identifier, u"b");
    EXPECT_EQ(informationOnEntry("system/applications-old/d.desktop", keys)->identifier, u"d");
    EXPECT_EQ(informationOnEntry("system/applications/日本.desktop", keys)->identifier, u"日本");
    EXPECT_EQ(
        informationOn("system//applications/../applications/x/y-z/c.d.desktop")->identifier, u"x-y-z-c.d");
}

TEST_F(ApplicationInformationTest, TheUsersFoldersAreFoundWithoutTheirVariables) {
    const EnvironmentVariable home("HOME", m_folder.path("me"));
    const EnvironmentVariable dataHome("XDG_DATA_HOME", std::nullopt);
    const EnvironmentVariable dataFolders("XDG_DATA_DIRS", std::nullopt);
    EXPECT_EQ(informationOnEntry("me/.local/share/applications/k/e.desktop", "Name=E\nExec=e\n")->identifier,
        u"k-e");
    EXPECT_EQ(desktopFileId(QStringLiteral("/usr/local/share/applications/k/e.desktop")), "k-e");
    EXPECT_EQ(desktopFileId(QStringLiteral("/usr/share/applications/k/e.desktop")), "k-e");
    const EnvironmentVariable relative("XDG_DATA_DIRS", "here:/opt/data/");
    EXPECT_EQ(desktopFileId(QStringLiteral("/opt/data/applications/k/e.desktop")), "k-e");
    EXPECT_EQ(desktopFileId(QStringLiteral("here/applications/k/e.desktop")), "e");
}

TEST_F(ApplicationInformationTest, AnEntryWithoutNameOrProgramIsNothing) {
    EXPECT_EQ(informationOnEntry("a.desktop", "Exec=e\n"), std::nullopt);
    EXPECT_EQ(informationOnEntry("b.desktop", "Name=\nExec=e\n"), std::nullopt);
    EXPECT_EQ(informationOnEntry("c.desktop", "Name=E\nDBusActivatable=true\n"), std::nullopt);
    EXPECT_EQ(informationOnEntry("d.desktop", "Name=E\nExec=\"unclosed\n"), std::nullopt);
    EXPECT_EQ(informationOnEntry("e.desktop", "Name=E\nExec=/\n"), (Information{u"E", u"e", u"", u"/"}));
}

TEST_F(ApplicationInformationTest, AnEntryThatCannotBeReadIsNothing) {
    const std::string entry = "[Desktop Entry]\nName=E\nExec=e\n";
    EXPECT_EQ(informationOn("missing.desktop"), std::nullopt);
    std::filesystem::create_directory(m_folder.path("folder.desktop"));
    EXPECT_EQ(informationOn("folder.desktop"), std::nullopt);
    ASSERT_EQ(::mkfifo(m_folder.path("fifo.desktop").c_str(), 0600), 0);
    EXPECT_EQ(informationOn("fifo.desktop"), std::nullopt);
    m_folder.write("huge.desktop", entry + std::string(1024UL * 1024UL, '#'));
    EXPECT_EQ(informationOn("huge.desktop"), std::nullopt);
    m_folder.write("empty.desktop", "");
    EXPECT_EQ(informationOn("empty.desktop"), std::nullopt);
    std::filesystem::create_symlink("loop.desktop", m_folder.path("loop.desktop"));
    EXPECT_EQ(informationOn("loop.desktop"), std::nullopt);
}

TEST_F(ApplicationInformationTest, BytesThatAreNoTextDoNoHarm) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.push_back(static_cast<char>(i * 31 + i / 256));
    m_folder.write("noise.desktop", bytes);
    EXPECT_EQ(informationOn("noise.desktop"), std::nullopt);
    m_folder.write("mixed.desktop", "[Desktop Entry]\nName=a\xFF"
                                    "b\nExec=/x/\xC3\x28\n" +
                                        bytes);
    EXPECT_EQ(informationOn("mixed.desktop"), (Information{u"a\uFFFDb", u"mixed", u"", u"\uFFFD("}));
}

TEST_F(ApplicationInformationTest, AProgramHasItsFileNameTwice) {
    m_folder.write("bin/Größe 日本", "#!/bin/sh\n");
    EXPECT_EQ(informationOn("bin/Größe 日本"), (Information{u"Größe 日本", u"", u"", u"Größe 日本"}));
    m_folder.write("bin/prog.sh", "");
    EXPECT_EQ(informationOn("bin/prog.sh"), (Information{u"prog.sh", u"", u"", u"prog.sh"}));
    EXPECT_EQ(informationOn("bin/missing"), (Information{u"missing", u"", u"", u"missing"}));
    ASSERT_EQ(::mkfifo(m_folder.path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(informationOn("fifo"), (Information{u"fifo", u"", u"", u"fifo"}));
}

TEST_F(ApplicationInformationTest, NoPathIsNoApplication) {
    EXPECT_EQ(applicationInformation(QString()), std::nullopt);
    EXPECT_EQ(applicationInformation(QStringLiteral("/")), std::nullopt);
}

} // namespace quorvi::test
