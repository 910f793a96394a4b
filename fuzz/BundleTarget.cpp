// The Info.plist of an application, and the string tables of a bundle: the same bytes as both.
#include <QString>

#include "Scratch.h"
#include "applications/ApplicationInformation.h"
#include "base/Unicode.h"
#include "model/Keys.h"
#include "model/ProfileMatching.h"
#include "platform/Bundle.h"
#include "plist/Reader.h"

using namespace quorvi;

namespace {

/// A bundle with one file as both.
class OneFileBundle {
  public:
    OneFileBundle() {
        const auto& folder = fuzz::scratch();
        m_file = folder.write("Any.app/Contents/Info.plist", "");
        std::filesystem::create_directories(folder.path("Any.app/Contents/Resources/de.lproj"));
        std::filesystem::create_hard_link(
            m_file, folder.path("Any.app/Contents/Resources/de.lproj/Any.strings"));
        m_path = folder.path("Any.app");
    }
    void fill(fuzz::Bytes bytes) const { fuzz::fill(m_file, bytes); }
    [[nodiscard]] const std::string& path() const { return m_path; }

  private:
    std::string m_file;
    std::string m_path;
};

/// Requires that a profile bound to the application matches it.
void requireMatch(const ApplicationInformation& application) {
    const auto driver = plist::Dictionary::create();
    driver.set(keys::application, application.name);
    driver.set(keys::identifier, application.identifier);
    driver.set(keys::signature, application.signature);
    driver.set(keys::executable, application.executable);
    const auto profile = plist::Dictionary::create();
    profile.set(keys::driver, driver);
    const auto profiles = plist::Array::create();
    profiles.append(profile);
    fuzz::require(KyvarMatchProfile(profiles, false, &application.name, &application.identifier,
                      &application.signature, &application.executable) == 0,
        "a bound profile is found");
}

void requireInformation(const OneFileBundle& file, const plist::Dictionary& info) {
    const auto application = applicationInformation(QString::fromStdString(file.path()));
    const auto* name = info.value("CFBundleName").string();
    const bool isNamed = !name || !name->empty(); // by its folder when it is not by itself
    fuzz::require(application.has_value() == (isNamed && !info.string("CFBundleExecutable").empty()),
        "an application has a name and a program, and nothing else is one");
    if (!application)
        return;
    fuzz::require(!application->name.empty() && !application->executable.empty(), "neither is empty");
    fuzz::require(application->signature != u"????", "four question marks are no signature");
    requireMatch(*application);
}

void requireTexts(const OneFileBundle& file, const plist::Dictionary& texts) {
    const Bundle bundle(file.path(), {"de"});
    std::map<std::u16string, std::u16string> first;
    for (const auto& entry : texts.entries())
        if (const auto* text = entry.value.string())
            first.emplace(toUtf16(entry.key), *text);
    for (const auto& [key, text] : first)
        fuzz::require(bundle.localizedString(key, "Any") == text, "a text of the table is found");
    const std::u16string other = u"any other key";
    fuzz::require(first.contains(other) || bundle.localizedString(other, "Any") == other,
        "a text that is not there is its key");
    fuzz::require(bundle.languageOfTable("Any") == "de", "the table is the language's");
    fuzz::require(bundle.executablePath().starts_with(file.path() + "/Contents/Linux/"),
        "the program is in the bundle");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const OneFileBundle file;
    const fuzz::Bytes bytes(data, size);
    const auto value = plist::readPropertyList(bytes);
    if (!value.dictionary() || value.dictionary().size() > 1000)
        return 0;
    file.fill(bytes);
    requireInformation(file, value.dictionary());
    requireTexts(file, value.dictionary());
    return 0;
}
