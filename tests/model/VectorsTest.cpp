// Settings files and their expected records, byte for byte, and the trees expected from these records.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/ConfigFileStore.h"
#include "model/ConfigMapping.h"
#include "model/Trees.h"
#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
namespace fs = std::filesystem;

const fs::path kFolder = fs::path(QUORVI_TEST_DATA) / "vectors";

std::vector<std::string> casesWith(const std::string& ending) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder)) {
        const auto name = entry.path().filename().string();
        if (name.size() > ending.size() && name.ends_with(ending))
            names.push_back(name.substr(0, name.size() - ending.size()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

Bytes bytesOfFile(const fs::path& path) {
    const auto content = readFile(path);
    return {content.begin(), content.end()};
}

plist::Dictionary treeOf(const std::string& name) {
    return storedTree("quorvi", kFolder / (name + ".plist"));
}

std::string caseName(const testing::TestParamInfo<std::string>& testCase) {
    auto name = testCase.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class Vectors : public testing::TestWithParam<std::string> {
  protected:
    std::unique_ptr<ConfigRecord> record = std::make_unique<ConfigRecord>();
};

class EncodedVectors : public Vectors {};
class RefusedVectors : public Vectors {};
class DecodedVectors : public Vectors {};

TEST_P(EncodedVectors, giveTheRecord) {
    fillWithGarbage(*record);
    ASSERT_TRUE(KyvarConfigDictToStruct(treeOf(GetParam()), record.get()));
    EXPECT_EQ(bytesOf(*record), bytesOfFile(kFolder / (GetParam() + ".bin")));
}

TEST_P(RefusedVectors, giveNoRecord) {
    const auto tree = treeOf(GetParam());
    ASSERT_TRUE(tree);
    EXPECT_FALSE(KyvarConfigDictToStruct(tree, record.get()));
}

TEST_P(DecodedVectors, giveTheTree) {
    const auto bytes = bytesOfFile(kFolder / (GetParam() + ".bin"));
    ASSERT_EQ(bytes.size(), sizeof(ConfigRecord));
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<std::uint8_t*>(record.get()));
    const auto expected = treeOf(GetParam() + ".decoded");
    ASSERT_TRUE(expected);
    EXPECT_TRUE(plist::Value(KyvarConfigStructToDict(record.get())) == plist::Value(expected));
}

INSTANTIATE_TEST_SUITE_P(Files, EncodedVectors, testing::ValuesIn(casesWith(".bin")), caseName);
INSTANTIATE_TEST_SUITE_P(Files, RefusedVectors, testing::ValuesIn(casesWith(".fail")), caseName);
INSTANTIATE_TEST_SUITE_P(Files, DecodedVectors, testing::ValuesIn(casesWith(".decoded.plist")), caseName);

TEST(VectorFiles, areAllThere) {
    EXPECT_EQ(casesWith(".bin").size(), 17U);
    EXPECT_EQ(casesWith(".fail").size(), 7U);
    EXPECT_EQ(casesWith(".decoded.plist").size(), 16U);
}

} // namespace
} // namespace quorvi
