// One file, loaded and saved in its own folder, with system calls that can be made to fail.
#pragma once

#include <gtest/gtest.h>

#include "base/ScriptedCalls.h"
#include "model/ConfigFile.h"
#include "model/Trees.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi::test {

inline constexpr std::int32_t kVersion = 6;

/// A valid tree, distinguished by its light.
[[nodiscard]] inline plist::Dictionary settings(int light) {
    return dict({{"version", kVersion}, {"settings", dict({{"light", light}})}, {"profiles", list()},
        {"macros", list()}});
}

class ConfigFileTest : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path path() const { return folder / "file.plist"; }
    [[nodiscard]] std::filesystem::path copy(int number) const {
        return folder / ("file.kept-" + std::to_string(number) + ".plist");
    }
    /// Writes like another program.
    void put(const plist::Value& content) const { writeFile(path(), plist::writeXml(content).value()); }
    [[nodiscard]] plist::Dictionary content() const {
        return plist::readPropertyListFile(path()).value.dictionary();
    }
    [[nodiscard]] plist::Dictionary load() { return file.load(kVersion, {}); }

    TemporaryFolder folder;
    ScriptedCalls calls;
    ConfigFile file{"quorvi", path(), calls};
};

} // namespace quorvi::test
