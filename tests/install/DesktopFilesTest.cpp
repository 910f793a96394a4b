// The installed panel's files for the desktop, checked by the desktop's own tools.
#include "install/Installed.h"

namespace quorvi::test {

class DesktopFiles : public Installed {
  protected:
    void SetUp() override { install("desktop"); }
};

TEST_F(DesktopFiles, TheMenuEntryIsValid) {
    const auto result = runProgram(
        {"desktop-file-validate", m_folder.path("share/applications/com.kyvar.quorvi-settings.desktop")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output + result.error, "");
}

TEST_F(DesktopFiles, TheEntryInSoftwareCataloguesIsValid) {
    EXPECT_TRUE(succeeds({"appstreamcli", "validate", "--no-net",
        m_folder.path("share/metainfo/com.kyvar.quorvi-settings.metainfo.xml")}));
}

TEST_F(DesktopFiles, TheCatalogueNamesTheReleaseThatIsBuilt) {
    EXPECT_NE(m_folder.read("share/metainfo/com.kyvar.quorvi-settings.metainfo.xml")
                  .find("<release version=\"" QUORVI_VERSION "\""),
        std::string::npos);
}

TEST_F(DesktopFiles, TheEntrysIconIsInstalled) {
    const auto entry = m_folder.read("share/applications/com.kyvar.quorvi-settings.desktop");
    EXPECT_NE(entry.find("\nIcon=com.kyvar.quorvi-settings\n"), std::string::npos);
    EXPECT_TRUE(succeeds({"xmllint", "--noout",
        m_folder.path("share/icons/hicolor/scalable/apps/com.kyvar.quorvi-settings.svg")}));
}

TEST_F(DesktopFiles, AFileOfEachTypeIsOpenedByTheEntry) {
    const std::string entry = m_folder.read("share/applications/com.kyvar.quorvi-settings.desktop");
    EXPECT_NE(entry.find("\nExec=quorvi-settings %f\n"), std::string::npos);
    ASSERT_TRUE(succeeds({"update-desktop-database", m_folder.path("share/applications")}));
    const std::string cache = m_folder.read("share/applications/mimeinfo.cache");
    for (const std::string type : {"settings", "profile", "macro"})
        EXPECT_NE(
            cache.find("application/x-kyvar-quorvi-" + type + "+xml=com.kyvar.quorvi-settings.desktop;"),
            std::string::npos)
            << cache;
}

TEST_F(DesktopFiles, TheExtensionsOfTheShellAreWhereItLooksForThem) {
    for (const std::string uuid : {"quorvi-front@kyvar.com", "quorvi-front-43@kyvar.com"}) {
        const std::string folder = "share/gnome-shell/extensions/" + uuid + "/";
        EXPECT_NE(
            m_folder.read(folder + "metadata.json").find("\"uuid\": \"" + uuid + "\""), std::string::npos);
        EXPECT_NE(m_folder.read(folder + "extension.js").find("com.kyvar.FrontReport1"), std::string::npos);
    }
}

} // namespace quorvi::test
