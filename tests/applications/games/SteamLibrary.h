// A made-up Steam library in a home folder.
#pragma once

#include <filesystem>
#include <string>

#include "support/Files.h"

namespace quorvi::test {

inline void addSteamGame(const std::filesystem::path& library, const std::string& number,
    const std::string& name, const std::string& flags = "4") {
    std::filesystem::create_directories(library / "steamapps");
    writeFile(library / "steamapps" / ("appmanifest_" + number + ".acf"),
        "\"AppState\"\n{\n\t\"appid\"\t\t\"" + number + "\"\n\t\"Universe\"\t\t\"1\"\n\t\"name\"\t\t\"" +
            name + "\"\n\t\"StateFlags\"\t\t\"" + flags +
            "\"\n\t\"UserConfig\"\n\t{\n\t\t\"language\"\t\t\"english\"\n\t}\n}\n");
}

} // namespace quorvi::test
