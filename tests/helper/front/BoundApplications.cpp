#include "helper/front/BoundApplications.h"

#include <string>

#include "base/Unicode.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi::test {

namespace {

std::string lastPart(const std::string& id) {
    return id.substr(id.rfind('.') + 1);
}

plist::Dictionary profileFor(const std::string& id, bool automatic) {
    const auto name = toUtf16(lastPart(id));
    auto made = profile(name);
    made.set("driver", dict({{"application", name}, {"identifier", toUtf16(id)}, {"signature", u""},
                           {"executable", toUtf16(id + "-program")}, {"autoswitch", automatic}}));
    return made;
}

} // namespace

void BoundApplications::install(const std::filesystem::path& home) {
    const auto entries = home / ".local/share/applications";
    std::filesystem::create_directories(entries);
    for (const std::string id : {drawing, writing, other})
        writeFile(entries / (id + ".desktop"),
            "[Desktop Entry]\nType=Application\nName=" + lastPart(id) + "\nExec=" + id + "-program %U\n");
}

void BoundApplications::bind(const std::filesystem::path& settings, bool automatic) {
    auto made =
        tree(list({profile(u"Own"), profileFor(drawing, automatic), profileFor(writing, automatic)}), list());
    made.set("settings", dict({{"profileid", 1}, {"stage", 1}, {"dpix", 400}, {"dpiy", 400}}));
    std::filesystem::create_directories(settings.parent_path());
    writeFile(settings, plist::writeXml(dict({{"quorvi", made}})).value());
}

} // namespace quorvi::test
