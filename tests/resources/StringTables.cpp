#include "resources/StringTables.h"

#include <QString>

#include <algorithm>
#include <cctype>
#include <regex>

#include "base/Unicode.h"
#include "plist/Reader.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

const fs::path kTables = QUORVI_SOURCE_ROOT "/resources";

bool areJoined(QChar before, QChar after) {
    return before.joiningType() == QChar::Joining_Dual &&
           (after.joiningType() == QChar::Joining_Dual || after.joiningType() == QChar::Joining_Right);
}

} // namespace

std::vector<std::string> languages() {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(kTables))
        if (entry.path().extension() == ".lproj")
            names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

fs::path stringTablePath(const std::string& language) {
    return kTables / (language + ".lproj") / "Localizable.strings";
}

StringTable readStringTable(const std::string& language) {
    StringTable table;
    const auto content = plist::readPropertyListFile(stringTablePath(language)).value.dictionary();
    for (const plist::Entry& entry : content.entries())
        if (const auto* text = entry.value.string())
            table.emplace(entry.key, toUtf8(*text));
    return table;
}

std::string testNameOf(const std::string& language) {
    std::string name = language;
    std::ranges::replace_if(
        name, [](char character) { return std::isalnum(character) == 0; }, '_');
    return name;
}

std::string shownText(const std::string& text) {
    static const std::regex added("\\(&.\\)");
    static const std::regex mark("&(.)");
    return std::regex_replace(std::regex_replace(text, added, ""), mark, "$1");
}

std::vector<std::string> placeholdersOf(const std::string& text) {
    static const std::regex placeholder("%[0-9]*[a-z0-9@]|\\^[0-9]");
    std::vector<std::string> found;
    for (std::sregex_iterator place(text.begin(), text.end(), placeholder), end; place != end; ++place)
        found.push_back(place->str());
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<std::string> accessKeysOf(const std::string& text) {
    const QString characters = QString::fromStdString(text).toCaseFolded();
    std::vector<std::string> keys;
    for (qsizetype mark = characters.indexOf(u'&'); mark >= 0; mark = characters.indexOf(u'&', mark + 2))
        if (const QString key = characters.mid(mark + 1, 1); !key.isEmpty() && key != QLatin1String("&"))
            keys.push_back(key.toStdString());
    return keys;
}

bool joinsAnAccessKey(const std::string& text) {
    const QString characters = QString::fromStdString(text);
    for (qsizetype mark = characters.indexOf(u'&'); mark >= 0; mark = characters.indexOf(u'&', mark + 2)) {
        const QString key = characters.mid(mark + 1, 2);
        if (mark > 0 && !key.isEmpty() && areJoined(characters.at(mark - 1), key.at(0)))
            return true;
        if (key.size() == 2 && areJoined(key.at(0), key.at(1)))
            return true;
    }
    return false;
}

} // namespace quorvi::test
