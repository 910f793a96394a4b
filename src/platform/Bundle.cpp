#include "platform/Bundle.h"

#include <algorithm>
#include <filesystem>

#include "base/Unicode.h"
#include "platform/Languages.h"
#include "plist/Limits.h"
#include "plist/PlainTexts.h"
#include "plist/Reader.h"
#include "plist/RegularFile.h"

namespace quorvi {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kLastResort = "en";
constexpr std::string_view kLocalisedFolder = ".lproj/";

std::string withoutClosingSlashes(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::vector<std::string> placesFor(const std::vector<std::string>& languages) {
    std::vector<std::string> places;
    const auto add = [&](const std::string& place) {
        if (std::find(places.begin(), places.end(), place) == places.end())
            places.push_back(place);
    };
    for (const auto& language : languages)
        for (const auto& name : localizationNames(language))
            add(name + std::string(kLocalisedFolder));
    add("");
    add(std::string(kLastResort).append(kLocalisedFolder));
    return places;
}

/// The texts of a string table's file; empty if it is not a string table.
plist::Texts textsOfFile(const std::string& path) {
    plist::Data bytes;
    if (plist::readRegularFile(path, plist::kMaxBytes, bytes) != plist::FileStatus::Ok)
        return {};
    if (auto plain = plist::readPlainTexts(bytes))
        return std::move(*plain);
    plist::Texts texts;
    const auto content = plist::readPropertyList(bytes).dictionary();
    for (const auto& [key, value] : content.entries())
        if (const auto* text = value.string())
            texts.emplace(toUtf16(key), *text);
    return texts;
}

} // namespace

Bundle::Bundle(const std::string& path) : Bundle(path, preferredLanguages()) {}

Bundle::Bundle(const std::string& path, const std::vector<std::string>& languages)
    : m_path(withoutClosingSlashes(path)), m_places(placesFor(languages)),
      m_info(plist::readPropertyListFile(m_path + "/Contents/Info.plist").value.dictionary()) {}

std::optional<std::u16string> Bundle::infoString(std::string_view key) const {
    const auto* text = infoValue(key).string();
    return text ? std::optional(*text) : std::nullopt;
}

std::string Bundle::resourcePath() const {
    return m_path + "/Contents/Resources";
}

std::vector<Bundle::Resource> Bundle::resourcesNamed(
    std::string_view name, std::string_view type, std::string_view directory) const {
    std::string file(directory);
    if (!file.empty())
        file.append("/");
    file.append(name);
    if (!type.empty())
        file.append(".").append(type);

    std::vector<Resource> resources;
    for (const auto& place : m_places) {
        std::string path = resourcePath();
        path.append("/").append(place).append(file);
        if (std::error_code error; fs::exists(path, error))
            resources.push_back({place, std::move(path)});
    }
    return resources;
}

std::optional<std::string> Bundle::pathForResource(
    std::string_view name, std::string_view type, std::string_view directory) const {
    auto resources = resourcesNamed(name, type, directory);
    return resources.empty() ? std::nullopt : std::optional(std::move(resources.front().path));
}

std::string Bundle::executablePath() const {
    std::string name = toUtf8(m_info.string("CFBundleExecutable"));
    if (name.empty())
        name = fs::path(m_path).stem();
    return m_path + "/Contents/Linux/" + name;
}

Bundle::StringTable Bundle::readTable(std::string_view table) const {
    StringTable texts;
    for (const auto& resource : resourcesNamed(table, "strings", {}))
        texts.merge(textsOfFile(resource.path)); // texts of preferred places stay
    return texts;
}

std::u16string Bundle::localizedString(std::u16string_view key, std::string_view table) const {
    auto known = m_tables.find(table);
    if (known == m_tables.end())
        known = m_tables.emplace(table, readTable(table)).first;
    const auto text = known->second.find(key);
    return text == known->second.end() ? std::u16string(key) : text->second;
}

std::string Bundle::languageOfTable(std::string_view table) const {
    const auto resources = resourcesNamed(table, "strings", {});
    if (resources.empty() || resources.front().place.empty())
        return std::string(kLastResort);
    const auto& place = resources.front().place;
    return place.substr(0, place.size() - kLocalisedFolder.size());
}

} // namespace quorvi
