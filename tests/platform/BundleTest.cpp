#include "platform/Bundle.h"

#include <gtest/gtest.h>

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

namespace {

std::string propertyList(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + content + "</plist>\n";
}

/// A string table of one text.
std::string table(const std::string& key, const std::string& text) {
    return propertyList("<dict><key>" + key + "</key><string>" + text + "</string></dict>");
}

class BundleTest : public ::testing::Test {
  protected:
    [[nodiscard]] Bundle bundle(const std::vector<std::string>& languages = {}) const {
        return Bundle(m_folder.path(kName), languages);
    }
    void writeInfo(const std::string& content) const {
        m_folder.write(kName + "/Contents/Info.plist", content);
    }
    void writeResource(const std::string& name, const std::string& content = "x") const {
        m_folder.write(kName + "/Contents/Resources/" + name, content);
    }
    [[nodiscard]] std::optional<std::string> resource(const std::string& name) const {
        return m_folder.path(kName + "/Contents/Resources/" + name);
    }

    const std::string kName = "My Pänel 日本.prefPane";
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(BundleTest, InfoValuesAreRead) {
    writeInfo(propertyList("<dict><key>CFBundleName</key><string>Pänel</string>"
                           "<key>CFBundleVersion</key><integer>7</integer><key>Empty</key><string/></dict>"));
    const auto panel = bundle();
    EXPECT_EQ(panel.infoString("CFBundleName"), u"Pänel");
    EXPECT_EQ(panel.infoString("Empty"), u"");
    EXPECT_EQ(panel.infoString("CFBundleVersion"), std::nullopt);
    EXPECT_EQ(panel.infoValue("CFBundleVersion").integer(), 7);
    EXPECT_EQ(panel.infoString("CFBundleShortVersionString"), std::nullopt);
    EXPECT_TRUE(panel.infoValue("CFBundleShortVersionString").isNothing());
}

TEST_F(BundleTest, AMissingOrBrokenInfoFileReadsAsNothing) {
    EXPECT_EQ(bundle().infoString("CFBundleName"), std::nullopt);
    for (const std::string& content :
        {std::string(), std::string("<plist><dict><key>CFBundleName</key>"), propertyList("<array/>")}) {
        writeInfo(content);
        EXPECT_EQ(bundle().infoString("CFBundleName"), std::nullopt);
        EXPECT_TRUE(bundle().infoValue("CFBundleName").isNothing());
    }
    const Bundle none("/nowhere/at all.app", {});
    EXPECT_EQ(none.infoString("CFBundleName"), std::nullopt);
    EXPECT_EQ(none.pathForResource("Defaults", "plist"), std::nullopt);
    EXPECT_EQ(none.localizedString(u"OK", "Localizable"), u"OK");
}

TEST_F(BundleTest, PathsHaveNoClosingSlash) {
    const Bundle panel("/opt/My Panel.prefPane//", {});
    EXPECT_EQ(panel.path(), "/opt/My Panel.prefPane");
    EXPECT_EQ(panel.resourcePath(), "/opt/My Panel.prefPane/Contents/Resources");
}

TEST_F(BundleTest, TheExecutableIsNamedByTheInfoFile) {
    writeInfo(table("CFBundleExecutable", "Kyvar Hélper"));
    EXPECT_EQ(bundle().executablePath(), m_folder.path(kName) + "/Contents/Linux/Kyvar Hélper");
}

TEST_F(BundleTest, WithoutAnExecutableKeyItHasTheBundlesName) {
    EXPECT_EQ(bundle().executablePath(), m_folder.path(kName) + "/Contents/Linux/My Pänel 日本");
    writeInfo(table("CFBundleExecutable", ""));
    EXPECT_EQ(bundle().executablePath(), m_folder.path(kName) + "/Contents/Linux/My Pänel 日本");
    EXPECT_EQ(Bundle("/a/Helper.v2.app/", {}).executablePath(), "/a/Helper.v2.app/Contents/Linux/Helper.v2");
    EXPECT_EQ(Bundle("/a/Helper", {}).executablePath(), "/a/Helper/Contents/Linux/Helper");
}

TEST_F(BundleTest, ResourcesAreFoundByNameAndType) {
    writeResource("Defaults.plist");
    writeResource("KyvarQuorviHelper.app/Contents/Info.plist");
    writeResource("README");
    EXPECT_EQ(bundle().pathForResource("Defaults", "plist"), resource("Defaults.plist"));
    EXPECT_EQ(bundle().pathForResource("KyvarQuorviHelper", "app"), resource("KyvarQuorviHelper.app"));
    EXPECT_EQ(bundle().pathForResource("README", ""), resource("README"));
    EXPECT_EQ(bundle().pathForResource("Defaults", ""), std::nullopt);
    EXPECT_EQ(bundle().pathForResource("Default", "plist"), std::nullopt);
}

TEST_F(BundleTest, ResourcesInAFolderAreFoundThere) {
    writeResource("Help/index.html");
    writeResource("de.lproj/Help/index.html");
    EXPECT_EQ(bundle().pathForResource("index", "html", "Help"), resource("Help/index.html"));
    EXPECT_EQ(
        bundle({"de_AT"}).pathForResource("index", "html", "Help"), resource("de.lproj/Help/index.html"));
    EXPECT_EQ(bundle().pathForResource("index", "html"), std::nullopt);
}

TEST_F(BundleTest, TheBestLanguageWins) {
    for (const char* place : {"", "en.lproj/", "pt.lproj/", "pt-BR.lproj/", "pt_BR.lproj/", "fr.lproj/"})
        writeResource(std::string(place) + "a.txt");
    const auto found = [&](const std::vector<std::string>& languages) {
        return bundle(languages).pathForResource("a", "txt");
    };
    EXPECT_EQ(found({"pt_BR", "fr"}), resource("pt_BR.lproj/a.txt"));
    std::filesystem::remove(*resource("pt_BR.lproj/a.txt"));
    EXPECT_EQ(found({"pt_BR", "fr"}), resource("pt-BR.lproj/a.txt"));
    std::filesystem::remove(*resource("pt-BR.lproj/a.txt"));
    EXPECT_EQ(found({"pt_BR", "fr"}), resource("pt.lproj/a.txt"));
    std::filesystem::remove(*resource("pt.lproj/a.txt"));
    EXPECT_EQ(found({"pt_BR", "fr"}), resource("fr.lproj/a.txt"));
    EXPECT_EQ(found({"pt_BR"}), resource("a.txt"));
    EXPECT_EQ(found({"en_GB"}), resource("en.lproj/a.txt"));
    EXPECT_EQ(found({}), resource("a.txt"));
    std::filesystem::remove(*resource("a.txt"));
    EXPECT_EQ(found({"pt_BR"}), resource("en.lproj/a.txt"));
}

TEST_F(BundleTest, TextsAreLocalised) {
    writeResource("de.lproj/Localizable.strings", table("Untitled Profile", "Unbenanntes Profil – ü"));
    EXPECT_EQ(
        bundle({"de_DE"}).localizedString(u"Untitled Profile", "Localizable"), u"Unbenanntes Profil – ü");
    EXPECT_EQ(bundle({"de_DE"}).localizedString(u"OK", "Localizable"), u"OK");
    EXPECT_EQ(bundle({"de_DE"}).localizedString(u"Untitled Profile", "Other"), u"Untitled Profile");
    EXPECT_EQ(bundle({"fr"}).localizedString(u"Untitled Profile", "Localizable"), u"Untitled Profile");
    EXPECT_EQ(bundle({"de"}).localizedString(u"", "Localizable"), u"");
}

TEST_F(BundleTest, ATextThatALanguageLacksComesFromTheNextPlace) {
    writeResource("de.lproj/T.strings", table("A", "de"));
    writeResource("fr.lproj/T.strings",
        propertyList("<dict><key>A</key><string>fr</string><key>B</key><string>fr</string></dict>"));
    writeResource("en.lproj/T.strings",
        propertyList("<dict><key>A</key><string>en</string><key>C</key><string>en</string></dict>"));
    const auto panel = bundle({"de", "fr"});
    EXPECT_EQ(panel.localizedString(u"A", "T"), u"de");
    EXPECT_EQ(panel.localizedString(u"B", "T"), u"fr");
    EXPECT_EQ(panel.localizedString(u"C", "T"), u"en");
    EXPECT_EQ(panel.localizedString(u"D", "T"), u"D");
}

TEST_F(BundleTest, KeysMayHoldAnyCharacter) {
    writeResource("en.lproj/T.strings", table("Größe &amp; %@\n😀", "size"));
    EXPECT_EQ(bundle().localizedString(u"Größe & %@\n😀", "T"), u"size");
}

TEST_F(BundleTest, ABrokenTableReadsAsNothing) {
    writeResource("de.lproj/T.strings", "\"A\" = \"old style\";");
    writeResource("T.strings", propertyList("<dict><key>A</key><integer>1</integer></dict>"));
    EXPECT_EQ(bundle({"de"}).localizedString(u"A", "T"), u"A");
    writeResource("en.lproj/T.strings", table("A", "en"));
    EXPECT_EQ(bundle({"de"}).localizedString(u"A", "T"), u"en");
}

TEST_F(BundleTest, ATableIsReadOnce) {
    writeResource("T.strings", table("A", "first"));
    const auto panel = bundle();
    EXPECT_EQ(panel.localizedString(u"A", "T"), u"first");
    writeResource("T.strings", table("A", "second"));
    EXPECT_EQ(panel.localizedString(u"A", "T"), u"first");
    EXPECT_EQ(bundle().localizedString(u"A", "T"), u"second");
}

TEST_F(BundleTest, TheLanguageOfATableIsThatOfTheBestPlaceThatHasIt) {
    writeResource("ar.lproj/Texts.strings", table("a", "b"));
    writeResource("en.lproj/Texts.strings", table("a", "b"));
    writeResource("pt_BR.lproj/Texts.strings", table("a", "b"));
    writeResource("Plain.strings", table("a", "b"));
    EXPECT_EQ(bundle({"ar_EG"}).languageOfTable("Texts"), "ar");
    EXPECT_EQ(bundle({"he", "pt_BR", "ar"}).languageOfTable("Texts"), "pt_BR");
    EXPECT_EQ(bundle({"he"}).languageOfTable("Texts"), "en");
    EXPECT_EQ(bundle({"ar"}).languageOfTable("Plain"), "en");
    EXPECT_EQ(bundle({"ar"}).languageOfTable("None"), "en");
}

TEST_F(BundleTest, TheEnvironmentNamesTheLanguagesByDefault) {
    writeResource("de.lproj/T.strings", table("A", "deutsch"));
    const EnvironmentVariable list("LANGUAGE", std::nullopt);
    const EnvironmentVariable locale("LC_ALL", "de_CH.UTF-8");
    EXPECT_EQ(Bundle(m_folder.path(kName)).localizedString(u"A", "T"), u"deutsch");
}

} // namespace quorvi::test
