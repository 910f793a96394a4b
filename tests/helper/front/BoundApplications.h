// Two applications with bound profiles, and a third with a desktop entry but no profile.
#pragma once

#include <cstdint>
#include <filesystem>

namespace quorvi::test {

class BoundApplications {
  public:
    static constexpr std::uint32_t usersOwn = 1; ///< the profile that the user chose
    static constexpr std::uint32_t ofDrawing = 2;
    static constexpr std::uint32_t ofWriting = 3;
    static constexpr char drawing[] = "org.example.Drawing";
    static constexpr char writing[] = "org.example.Writing";
    static constexpr char other[] = "org.example.Other";

    /// Writes their desktop entries below the home folder.
    static void install(const std::filesystem::path& home);
    /// Writes a settings file that binds the profiles, which switch by themselves or do not. Its folder is
    /// made.
    static void bind(const std::filesystem::path& settings, bool automatic = true);
};

} // namespace quorvi::test
