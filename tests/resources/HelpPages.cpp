#include "resources/HelpPages.h"

#include <QXmlStreamReader>

#include <algorithm>

#include "support/Files.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

const fs::path kResources = QUORVI_SOURCE_ROOT "/resources";

HelpElement elementAt(const QXmlStreamReader& reader) {
    HelpElement element{reader.name().toString().toStdString(), {}, {}};
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        element.attributes.emplace(
            attribute.name().toString().toStdString(), attribute.value().toString().toStdString());
    return element;
}

std::string inOneLine(const std::string& text) {
    return QString::fromStdString(text).simplified().toStdString();
}

} // namespace

std::string HelpElement::attribute(const std::string& key) const {
    const auto found = attributes.find(key);
    return found == attributes.end() ? "" : found->second;
}

std::vector<HelpElement> HelpPage::all(const std::string& name, const std::string& ofClass) const {
    std::vector<HelpElement> found;
    std::ranges::copy_if(elements, std::back_inserter(found), [&](const HelpElement& element) {
        return element.name == name && (ofClass.empty() || element.attribute("class") == ofClass);
    });
    return found;
}

std::vector<std::string> HelpPage::ids() const {
    std::vector<std::string> ids;
    for (const HelpElement& element : elements)
        if (const std::string id = element.attribute("id"); !id.empty())
            ids.push_back(id);
    return ids;
}

fs::path helpFolder(const std::string& language) {
    return language == "en" ? kResources / "Help" : kResources / (language + ".lproj") / "Help";
}

std::vector<std::string> helpFiles(const std::string& language, const std::string& extension) {
    std::vector<std::string> names;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(helpFolder(language), none))
        if (entry.path().extension() == extension)
            names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

HelpPage readHelpPage(const fs::path& path) {
    HelpPage page;
    std::vector<std::size_t> open;
    QXmlStreamReader reader(QByteArray::fromStdString(readFile(path)));
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            open.push_back(page.elements.size());
            page.elements.push_back(elementAt(reader));
        } else if (reader.isEndElement()) {
            HelpElement& element = page.elements[open.back()];
            element.text = inOneLine(element.text);
            open.pop_back();
        } else if (reader.isCharacters()) {
            for (const std::size_t index : open)
                page.elements[index].text += reader.text().toString().toStdString();
        }
    }
    if (reader.hasError())
        page.error = reader.errorString().toStdString() + " in line " + std::to_string(reader.lineNumber());
    return page;
}

std::map<std::string, HelpPage> readHelp(const std::string& language) {
    std::map<std::string, HelpPage> pages;
    for (const std::string& name : helpFiles(language, ".html"))
        pages.emplace(name, readHelpPage(helpFolder(language) / name));
    return pages;
}

} // namespace quorvi::test
