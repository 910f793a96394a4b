#include "resources/InterfaceFiles.h"

#include <QFile>
#include <QXmlStreamReader>

#include <filesystem>
#include <stdexcept>

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

struct Text {
    std::string property;
    std::string text;
};

struct Widget {
    std::string type;
    std::string name;
    std::vector<Text> texts;
    std::vector<Widget> children;
};

void readTexts(QXmlStreamReader& xml, Widget& owner) {
    const std::string property = xml.attributes().value(QLatin1String("name")).toString().toStdString();
    while (xml.readNextStartElement()) {
        const bool isText = xml.name() == QLatin1String("string") &&
                            xml.attributes().value(QLatin1String("notr")) != QLatin1String("true");
        const std::string text = xml.readElementText(QXmlStreamReader::IncludeChildElements).toStdString();
        if (isText && !text.empty())
            owner.texts.push_back({property, text});
    }
}

void readContent(QXmlStreamReader& xml, Widget& owner) {
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("widget")) {
            const auto attribute = [&](const char* name) {
                return xml.attributes().value(QLatin1String(name)).toString().toStdString();
            };
            Widget child{attribute("class"), attribute("name"), {}, {}};
            readContent(xml, child);
            owner.children.push_back(std::move(child));
        } else if (xml.name() == QLatin1String("property") || xml.name() == QLatin1String("attribute")) {
            readTexts(xml, owner);
        } else {
            readContent(xml, owner);
        }
    }
}

std::vector<Widget> windows() {
    std::vector<Widget> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(QUORVI_SOURCE_ROOT)) {
        if (entry.path().extension() != ".ui")
            continue;
        QFile file(QString::fromStdString(entry.path().string()));
        static_cast<void>(file.open(QIODevice::ReadOnly)); // a file that cannot be read is no XML either
        QXmlStreamReader xml(&file);
        Widget content;
        if (xml.readNextStartElement())
            readContent(xml, content);
        if (xml.hasError() || content.children.size() != 1)
            throw std::runtime_error("cannot read " + entry.path().string());
        found.push_back(std::move(content.children.front()));
    }
    return found;
}

const std::vector<Widget>& pagesOf(const Widget& widget) {
    static const std::vector<Widget> none;
    return widget.type == "quorvi::TabView" ? widget.children : none;
}

const Widget* tabsIn(const Widget& widget) {
    if (!pagesOf(widget).empty())
        return &widget;
    for (const Widget& child : widget.children)
        if (const Widget* tabs = tabsIn(child))
            return tabs;
    return nullptr;
}

void addAll(const Widget& widget, std::vector<std::string>& texts) {
    for (const Text& text : widget.texts)
        texts.push_back(text.text);
    for (const Widget& child : widget.children)
        addAll(child, texts);
}

// A page's own texts are its title on the tab, which is shown while another page is.
void addShown(const Widget& widget, const Widget* page, std::vector<std::string>& texts) {
    for (const Text& text : widget.texts)
        if (text.property == "text" || text.property == "title")
            texts.push_back(text.text);
    const bool hasPages = !pagesOf(widget).empty();
    for (const Widget& child : widget.children) {
        if (hasPages && &child != page)
            addShown({child.type, child.name, child.texts, {}}, page, texts);
        else
            addShown(child, page, texts);
    }
}

} // namespace

std::vector<std::string> textsOfInterfaceFiles() {
    std::vector<std::string> texts;
    for (const Widget& window : windows())
        addAll(window, texts);
    return texts;
}

std::vector<TextsOfPlace> textsShownTogether() {
    std::vector<TextsOfPlace> places;
    const auto add = [&](const Widget& window, const Widget* page) {
        places.push_back({page ? page->name : window.name, {}});
        addShown(window, page, places.back().texts);
    };
    for (const Widget& window : windows()) {
        const Widget* tabs = tabsIn(window);
        if (!tabs)
            add(window, nullptr);
        else
            for (const Widget& page : pagesOf(*tabs))
                add(window, &page);
    }
    return places;
}

} // namespace quorvi::test
