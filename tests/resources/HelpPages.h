// The help pages of the panel's languages as the sources hold them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quorvi::test {

/// A start tag of a page, with all text up to its end tag, spaces and line ends as one space.
struct HelpElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text;

    /// The attribute's value; empty when there is none.
    [[nodiscard]] std::string attribute(const std::string& key) const;
};

struct HelpPage {
    std::string error; ///< why it is not well-formed; empty when it is
    std::vector<HelpElement> elements;

    /// The elements of that name, and of that class when one is given, in the order of the page.
    [[nodiscard]] std::vector<HelpElement> all(
        const std::string& name, const std::string& ofClass = {}) const;
    /// What links can lead to.
    [[nodiscard]] std::vector<std::string> ids() const;
};

/// The folder of the language's pages. English ones lie outside the languages' folders: they are shown in
/// every language that has none.
[[nodiscard]] std::filesystem::path helpFolder(const std::string& language);

/// The names of the files in the language's folder with that extension, ".html" or ".png", in order.
[[nodiscard]] std::vector<std::string> helpFiles(const std::string& language, const std::string& extension);

[[nodiscard]] HelpPage readHelpPage(const std::filesystem::path& path);

/// All pages of a language, by their names.
[[nodiscard]] std::map<std::string, HelpPage> readHelp(const std::string& language);

} // namespace quorvi::test
