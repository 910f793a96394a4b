// An application or preference-pane bundle: a folder with "Contents/Info.plist", "Contents/Resources" and
// "Contents/Linux".
//
// Reading is total. A bundle that does not exist, and one whose Info.plist is missing or broken, has no
// values. Paths are the file system's bytes; texts are UTF-16, as in the property-list tree. For one thread
// at a time.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

class Bundle {
  public:
    /// `languages` are locale names such as "pt_BR", the preferred one first; see preferredLanguages() in
    /// Languages.h, which is the default.
    explicit Bundle(const std::string& path);
    Bundle(const std::string& path, const std::vector<std::string>& languages);

    /// The bundle's folder, without a closing slash.
    [[nodiscard]] const std::string& path() const { return m_path; }

    /// The value under a key of the Info.plist; Value() if there is none.
    [[nodiscard]] const plist::Value& infoValue(std::string_view key) const { return m_info.value(key); }
    /// The same for a text; std::nullopt if there is none or it is not a text.
    [[nodiscard]] std::optional<std::u16string> infoString(std::string_view key) const;

    /// The folder of the resources, whether it exists or not.
    [[nodiscard]] std::string resourcePath() const;

    /// The file or folder "<name>.<type>" (just "<name>" for an empty type) of the resources, or of that
    /// folder within them. Looked for in the "*.lproj" of each preferred language, then among the resources
    /// that are not localised, then in "en.lproj". Returns std::nullopt if there is none.
    [[nodiscard]] std::optional<std::string> pathForResource(
        std::string_view name, std::string_view type, std::string_view directory = {}) const;

    /// The program "Contents/Linux/<CFBundleExecutable>", whether it exists or not. If the key is missing or
    /// empty, the bundle's own name without its extension is used.
    [[nodiscard]] std::string executablePath() const;

    /// The text of the key in the string table "<table>.strings", from the first place searched by
    /// pathForResource() whose table has the key; the key itself if none has it. A table is an XML property
    /// list of one dictionary, text to text, and is read once.
    [[nodiscard]] std::u16string localizedString(std::u16string_view key, std::string_view table) const;

    /// The language that localizedString() prefers: the folder's name, such as "pt_BR", of the first place
    /// with the string table. "en" for a table that is not localised or missing, because keys are English.
    [[nodiscard]] std::string languageOfTable(std::string_view table) const;

  private:
    using StringTable = std::map<std::u16string, std::u16string, std::less<>>;

    struct Resource {
        std::string place; ///< one of m_places
        std::string path;
    };

    [[nodiscard]] std::vector<Resource> resourcesNamed(
        std::string_view name, std::string_view type, std::string_view directory) const;
    [[nodiscard]] StringTable readTable(std::string_view table) const;

    std::string m_path;
    /// The folders within the resources to look in, in this order, each with its closing slash; "" stands for
    /// the resources themselves.
    std::vector<std::string> m_places;
    plist::Dictionary m_info;
    mutable std::map<std::string, StringTable, std::less<>> m_tables;
};

} // namespace quorvi
