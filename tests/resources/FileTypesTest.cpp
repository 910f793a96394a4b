#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

struct FileType {
    std::string extension;
    std::string type;
    std::string icon;
    std::string comment;
};

const std::vector<FileType> kFileTypes{
    {"quorviProfile", "application/x-kyvar-quorvi-profile+xml", "application-x-kyvar-quorvi-profile+xml",
        "Kyvar Quorvi profile"},
    {"quorviMacro", "application/x-kyvar-quorvi-macro+xml", "application-x-kyvar-quorvi-macro+xml",
        "Kyvar Quorvi macro"},
    {"quorviSettings", "application/x-kyvar-quorvi-settings+xml", "application-x-kyvar-quorvi-settings+xml",
        "Kyvar Quorvi settings"},
};

constexpr const char* kPropertyList = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                      "<plist version=\"1.0\"><dict/></plist>\n";

/// What the project's own rules install for the desktop, in a folder of the test's own.
class FileTypesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto installed = runProgram(
            {QUORVI_CMAKE, "--install", QUORVI_BUILD, "--prefix", m_folder.path(), "--component", "desktop"});
        ASSERT_EQ(installed.exitCode, 0) << installed.error;
    }

    /// What the desktop says of a file, with the types that are installed and no others.
    [[nodiscard]] std::string attributesOf(const std::string& file, const std::string& attribute) const {
        const auto updated = runProgram({"update-mime-database", "-V", m_folder.path("share/mime")});
        EXPECT_EQ(updated.exitCode, 0);
        EXPECT_EQ(updated.error.find(".xml'"), std::string::npos) << updated.error; // names what it refuses
        return runProgram({"gio", "info", "-a", attribute, m_folder.write(file, kPropertyList)},
            {"XDG_DATA_HOME=" + m_folder.path("home"), "XDG_DATA_DIRS=" + m_folder.path("share")})
            .output;
    }

    TemporaryFolder m_folder;
};

} // namespace

TEST_F(FileTypesTest, TheDesktopKnowsExportedFilesByTheirExtension) {
    for (const auto& type : kFileTypes) {
        const auto attributes = attributesOf("x." + type.extension, "standard::content-type");
        EXPECT_NE(attributes.find("standard::content-type: " + type.type + "\n"), std::string::npos)
            << attributes;
    }
}

TEST_F(FileTypesTest, TheExtensionsCaseDoesNotMatter) {
    const auto attributes = attributesOf("X.QUORVIMACRO", "standard::content-type");
    EXPECT_NE(attributes.find(": application/x-kyvar-quorvi-macro+xml\n"), std::string::npos) << attributes;
}

TEST_F(FileTypesTest, OtherPropertyListsAreNone) {
    EXPECT_EQ(attributesOf("x.plist", "standard::content-type").find("kyvar"), std::string::npos);
    EXPECT_EQ(attributesOf("quorviProfile", "standard::content-type").find("kyvar"), std::string::npos);
}

TEST_F(FileTypesTest, EachTypeHasItsInstalledIcon) {
    for (const auto& type : kFileTypes) {
        const auto attributes = attributesOf("x." + type.extension, "standard::icon");
        EXPECT_NE(attributes.find(type.icon + ","), std::string::npos) << attributes;
        const std::string icon = "share/icons/hicolor/scalable/mimetypes/" + type.icon + ".svg";
        EXPECT_TRUE(m_folder.has(icon));
        EXPECT_EQ(runProgram({"xmllint", "--noout", m_folder.path(icon)}).exitCode, 0);
    }
}

TEST_F(FileTypesTest, EachTypeIsXmlAndSaysWhatItIs) {
    const std::string file = m_folder.path("share/mime/packages/com.kyvar.quorvi.xml");
    for (const auto& type : kFileTypes) {
        const auto query = [&](const std::string& path) {
            return runProgram(
                {"xmllint", "--xpath", "string(//*[@type='" + type.type + "']/*[local-name()='" + path + ")",
                    file})
                .output;
        };
        EXPECT_EQ(query("comment']"), type.comment + "\n");
        EXPECT_EQ(query("sub-class-of']/@type"), "application/xml\n");
        EXPECT_EQ(query("glob']/@pattern"), "*." + type.extension + "\n");
    }
}

} // namespace quorvi::test
