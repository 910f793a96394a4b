#include "applications/InstalledApplications.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include <sys/stat.h>

#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

using Names = std::map<std::string, std::string>; ///< by id

class InstalledApplicationsTest : public ::testing::Test {
  protected:
    /// Writes an application's entry, named after its file unless the keys say otherwise.
    std::string install(const std::string& file, const std::string& keys = {}) const {
        const bool named = keys.find("Name=") != std::string::npos;
        const std::string name = named ? "" : "Name=" + std::filesystem::path(file).stem().string() + "\n";
        const bool runs = keys.find("Exec=") != std::string::npos && keys.find("TryExec=") != 0;
        const bool typed = keys.find("Type=") != std::string::npos;
        return m_folder.write(file, "[Desktop Entry]\n" + std::string(typed ? "" : "Type=Application\n") +
                                        name + (runs ? "" : "Exec=true\n") + keys);
    }

    [[nodiscard]] static Names installed() {
        Names names;
        for (const auto& application : installedApplications())
            names.emplace(application.id.toStdString(), application.name.toStdString());
        return names;
    }

    TemporaryFolder m_folder;
    EnvironmentVariable m_home{"XDG_DATA_HOME", m_folder.path("home")};
    EnvironmentVariable m_folders{"XDG_DATA_DIRS", m_folder.path("local") + ":" + m_folder.path("system")};
    EnvironmentVariable m_desktop{"XDG_CURRENT_DESKTOP", std::nullopt};
    EnvironmentVariable m_locale{"LC_ALL", "C.UTF-8"};
    EnvironmentVariable m_language{"LANGUAGE", std::nullopt};
};

} // namespace

TEST_F(InstalledApplicationsTest, EveryFolderIsReadSubfoldersIncluded) {
    install("home/applications/a.desktop");
    install("local/applications/kde/b.desktop");
    install("system/applications/x/y/c.desktop");
    install("system/applications/.hidden.desktop");
    install("system/applications/no-entry.txt");
    install("system/other/d.desktop");
    EXPECT_EQ(installed(), (Names{{"a", "a"}, {"kde-b", "b"}, {"x-y-c", "c"}, {".hidden", ".hidden"}}));
}

TEST_F(InstalledApplicationsTest, WhereNothingIsInstalledThereIsNothing) {
    EXPECT_EQ(installed(), Names{});
}

TEST_F(InstalledApplicationsTest, AllThatIsKnownOfOneIsGiven) {
    const std::string path = install("system/applications/org.example.Ed.desktop",
        "Name=Editor\nName[de]= Größe\\n日本 \nIcon=ed\nIcon[de]=/x/ed-de.png\nExec=/usr/bin/edit %U\n");
    const EnvironmentVariable german("LC_ALL", "de_DE.UTF-8");
    const auto applications = installedApplications();
    ASSERT_EQ(applications.size(), 1U);
    EXPECT_EQ(applications[0].id, "org.example.Ed");
    EXPECT_EQ(applications[0].name, QStringLiteral("Größe 日本"));
    EXPECT_EQ(applications[0].searchTexts, QStringLiteral("Größe 日本\nEditor\nedit"));
    EXPECT_EQ(applications[0].icon, "/x/ed-de.png");
    EXPECT_EQ(applications[0].path.toStdString(), path);
}

TEST_F(InstalledApplicationsTest, NamesAreInTheUsersLanguage) {
    install("system/applications/a.desktop", "Name=A\nName[de]=Ä\nName[de_AT]=Ö\nName[fr]=\n");
    EXPECT_EQ(installed().at("a"), "A");
    const EnvironmentVariable locale("LC_ALL", "de_CH.UTF-8");
    EXPECT_EQ(installed().at("a"), "Ä");
    const EnvironmentVariable austrian("LANGUAGE", "de_AT");
    EXPECT_EQ(installed().at("a"), "Ö");
    const EnvironmentVariable french("LANGUAGE", "fr");
    EXPECT_EQ(installed().at("a"), "A");
}

TEST_F(InstalledApplicationsTest, TheFirstEntryOfAnIdCounts) {
    install("home/applications/a.desktop", "Name=mine\n");
    install("local/applications/a.desktop", "Name=local\n");
    install("local/applications/kde-b.desktop", "Name=flat\n");
    install("system/applications/a.desktop", "Name=system\n");
    install("system/applications/kde/b.desktop", "Name=nested\n");
    EXPECT_EQ(installed(), (Names{{"a", "mine"}, {"kde-b", "flat"}}));
}

TEST_F(InstalledApplicationsTest, AUsersHiddenEntryHidesTheSystems) {
    install("home/applications/a.desktop", "Hidden=true\n");
    install("home/applications/b.desktop", "NoDisplay=true\n");
    std::filesystem::create_symlink("/nowhere", m_folder.path("home/applications/c.desktop"));
    for (const char* id : {"a", "b", "c", "d"})
        install(std::string("system/applications/") + id + ".desktop");
    EXPECT_EQ(installed(), (Names{{"d", "d"}}));
}

TEST_F(InstalledApplicationsTest, OnlyApplicationsThatCanBeRecognisedAreListed) {
    install("system/applications/link.desktop", "Type=Link\n");
    install("system/applications/directory.desktop", "Type=Directory\n");
    m_folder.write("system/applications/untyped.desktop", "[Desktop Entry]\nName=x\nExec=true\n");
    m_folder.write("system/applications/activated.desktop",
        "[Desktop Entry]\nType=Application\nName=x\nDBusActivatable=true\n");
    install("system/applications/nameless.desktop", "Name=\n");
    install("system/applications/shown.desktop", "Hidden=false\nNoDisplay=false\n");
    EXPECT_EQ(installed(), (Names{{"shown", "shown"}}));
}

TEST_F(InstalledApplicationsTest, AProgramToTryMustBeThere) {
    const std::string program = m_folder.write("bin/tool", "#!/bin/sh\n");
    install("system/applications/absolute.desktop", "TryExec=" + program + "\n");
    install("system/applications/named.desktop", "TryExec=tool\n");
    install("system/applications/empty.desktop", "TryExec=\n");
    const EnvironmentVariable path("PATH", m_folder.path("bin"));
    EXPECT_EQ(installed(), (Names{{"empty", "empty"}})); // not executable yet
    ASSERT_EQ(::chmod(program.c_str(), 0755), 0);
    EXPECT_EQ(installed(), (Names{{"absolute", "absolute"}, {"empty", "empty"}, {"named", "named"}}));
}

TEST_F(InstalledApplicationsTest, TheFirstDesktopThatAListNamesDecides) {
    install("system/applications/all.desktop");
    install("system/applications/only-kde.desktop", "OnlyShowIn=KDE;\n");
    install("system/applications/not-kde.desktop", "NotShowIn=XFCE;KDE;\n");
    install("system/applications/both.desktop", "OnlyShowIn=Unity;\nNotShowIn=GNOME;\n");
    const Names all{{"all", "all"}};
    const auto with = [&](const char* desktops) {
        const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", desktops);
        Names names = installed();
        EXPECT_EQ(names.erase("all"), 1U);
        return names;
    };
    EXPECT_EQ(with(""), (Names{{"not-kde", "not-kde"}}));
    EXPECT_EQ(with("KDE"), (Names{{"only-kde", "only-kde"}}));
    EXPECT_EQ(with("kde"), (Names{{"not-kde", "not-kde"}}));
    EXPECT_EQ(with("GNOME"), (Names{{"not-kde", "not-kde"}}));
    EXPECT_EQ(with("Unity:GNOME"), (Names{{"both", "both"}, {"not-kde", "not-kde"}}));
    EXPECT_EQ(with("GNOME:Unity"), (Names{{"not-kde", "not-kde"}}));
}

TEST_F(InstalledApplicationsTest, HostileFilesAreLeftOut) {
    install("system/applications/good.desktop");
    install("system/applications/huge.desktop", "Comment=" + std::string(1024UL * 1024UL, 'x') + "\n");
    m_folder.write("system/applications/noise.desktop", std::string("\0\xFF\n[Desktop Entry]\n=\n\n[", 24));
    ASSERT_EQ(::mkfifo(m_folder.path("system/applications/fifo.desktop").c_str(), 0600), 0);
    std::filesystem::create_directory(m_folder.path("system/applications/folder.desktop"));
    std::filesystem::create_directory_symlink(".", m_folder.path("system/applications/loop"));
    std::filesystem::create_directory_symlink("/", m_folder.path("system/applications/everything"));
    EXPECT_EQ(installed(), (Names{{"good", "good"}}));
}

// The desktops' own library, as a second opinion.
TEST_F(InstalledApplicationsTest, AnotherReaderSeesTheSame) {
    install("home/applications/a.desktop", "Name=mine\n");
    install("system/applications/a.desktop", "Name=system\n");
    install("home/applications/hidden.desktop", "Hidden=true\n");
    install("system/applications/hidden.desktop");
    install("system/applications/kde/b.desktop", "Name=Größe\nName[de]=\\sD\\te\\\\\n");
    install("system/applications/quoted.desktop", "Exec=\"/bin/sh\" -c true\n");
    install("system/applications/single.desktop", "Exec='/bin/sh' -c true\n");
    install("system/applications/only.desktop", "OnlyShowIn=KDE;GNOME;\n");
    install("system/applications/only-other.desktop", "OnlyShowIn=KDE;\n");
    install("system/applications/not.desktop", "NotShowIn=GNOME;\n");
    install("system/applications/nodisplay.desktop", "NoDisplay=true\n");
    install("system/applications/try.desktop", "TryExec=/nowhere\n");
    install("system/applications/link.desktop", "Type=Link\nURL=http://localhost/\n");
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    const EnvironmentVariable language("LANGUAGE", "de");
    const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");

    std::vector<std::string> lines;
    for (const auto& application : installedApplications())
        lines.push_back((application.id + "\t" + application.name + "\t" +
                         application.searchTexts.section('\n', -1) + "\t" + application.path + "\n")
                            .toStdString());
    std::sort(lines.begin(), lines.end());
    std::string ours;
    for (const auto& line : lines)
        ours += line;
    const auto other = runProgram({QUORVI_PROGRAMS "/quorvi-gio-applications"});
    ASSERT_EQ(other.exitCode, 0) << other.error;
    EXPECT_EQ(lines.size(), 5U);
    EXPECT_EQ(ours, other.output);
}

} // namespace quorvi::test
