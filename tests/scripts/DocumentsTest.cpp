// The documents are consistent: their links work, no decision is missing from the index, and the pictures
// that every clone carries stay small.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace quorvi::test {
namespace {

const std::filesystem::path kSource = QUORVI_SOURCE;

/// All pictures of the documents together, in bytes.
constexpr std::uintmax_t kMostOfPictures = 600'000;
/// The drawings of designs, which stay as they are.
constexpr std::uintmax_t kMostOfDrawings = 1'000'000;
/// The film of the read-me, which pages on the web have to load.
constexpr std::uintmax_t kMostOfFilm = 2'000'000;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    return files;
}

std::vector<std::filesystem::path> documents() {
    auto files = filesBelow(kSource / "docs");
    std::erase_if(files, [](const auto& file) { return file.extension() != ".md"; });
    for (const auto* name : {"README.md", "CONTRIBUTING.md", "CHANGELOG.md", "tests/data/engine/README.md"})
        files.push_back(kSource / name);
    return files;
}

/// The targets of the document's links to files of the repository.
std::vector<std::string> linksOf(const std::string& document) {
    static const std::regex link(R"(\]\(([^)\s]+)\))");
    std::vector<std::string> links;
    for (std::sregex_iterator found(document.begin(), document.end(), link), end; found != end; ++found)
        if ((*found)[1].str().find("://") == std::string::npos)
            links.push_back((*found)[1]);
    return links;
}

/// Whether the document has a heading that this part of an address names: in lower case, with hyphens for
/// blanks and without other marks.
bool hasHeading(const std::string& document, const std::string& name) {
    static const std::regex heading(R"((?:^|\n)#+ ([^\n]*))");
    for (std::sregex_iterator found(document.begin(), document.end(), heading), end; found != end; ++found) {
        std::string address;
        for (const unsigned char c : (*found)[1].str())
            if (std::isalnum(c) || c == '-' || c == ' ')
                address += c == ' ' ? '-' : static_cast<char>(std::tolower(c));
        if (address == name)
            return true;
    }
    return false;
}

TEST(Documents, LinksLeadToFilesAndHeadingsThatAreThere) {
    std::size_t followed = 0;
    for (const auto& document : documents()) {
        for (const auto& link : linksOf(contentOf(document))) {
            const auto hash = link.find('#');
            const auto file = hash == 0 ? document : document.parent_path() / link.substr(0, hash);
            EXPECT_TRUE(std::filesystem::exists(file)) << document << ": " << link;
            if (hash != std::string::npos) {
                EXPECT_TRUE(hasHeading(contentOf(file), link.substr(hash + 1))) << document << ": " << link;
            }
            ++followed;
        }
    }
    EXPECT_GT(followed, 100U) << "the index of the decisions alone has about a hundred";
}

TEST(Documents, EachDecisionIsInTheIndexWithItsTitleAndDate) {
    const auto index = contentOf(kSource / "docs/decisions/README.md");
    static const std::regex form(R"(# ([^\n]+)\n\n(\d{4}-\d{2}-\d{2})\n\n)");
    for (const auto& file : filesBelow(kSource / "docs/decisions")) {
        const std::string name = file.filename();
        if (name == "README.md")
            continue;
        const auto note = contentOf(file);
        std::smatch parts;
        ASSERT_TRUE(std::regex_search(note, parts, form, std::regex_constants::match_continuous))
            << name << " starts with its title and its date";
        const auto line =
            "- [" + name.substr(0, 3) + "](" + name + ") " + parts[1].str() + " (" + parts[2].str() + ")\n";
        EXPECT_NE(index.find(line), std::string::npos) << line;
        EXPECT_LE(std::ranges::count(note, '\n'), 30) << name << " is a short note";
    }
}

TEST(Documents, PicturesStaySmall) {
    std::uintmax_t size = 0;
    std::uintmax_t drawings = 0;
    std::uintmax_t film = 0;
    for (const auto& file : filesBelow(kSource / "docs")) {
        if (file.extension() == ".md")
            continue;
        auto& kind = file.extension() == ".gif"                ? film
                     : file.parent_path().filename() == "look" ? drawings
                                                               : size;
        kind += std::filesystem::file_size(file);
    }
    EXPECT_GT(size, 0U);
    EXPECT_GT(film, 0U);
    EXPECT_LT(film, kMostOfFilm);
    EXPECT_LE(drawings, kMostOfDrawings);
    EXPECT_LE(size, kMostOfPictures) << "the gallery belongs in the build folder (scripts/gallery)";
}

} // namespace
} // namespace quorvi::test
