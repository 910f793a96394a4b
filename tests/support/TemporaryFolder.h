// A temporary folder for a test, removed with its content at the end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorvi::test {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quorvi-XXXXXX").string();
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::string path(const std::string& name) const { return m_path / name; }

    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

    /// The names in the folder, for checking that no files were left behind.
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// Writes a file, the folders above it included, and returns its path.
    std::string write(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }

    /// The content of a file; empty if there is none.
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] bool has(const std::string& name) const { return std::filesystem::exists(path(name)); }

  private:
    std::filesystem::path m_path;
};

} // namespace quorvi::test
