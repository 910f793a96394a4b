#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include "plist/Limits.h"
#include "plist/Samples.h"

namespace quorvi::plist {
namespace {

class FileReader : public testing::Test {
  protected:
    void SetUp() override {
        std::string folder = testing::TempDir() + "/quorvi-plist-XXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::filesystem::path path(const char* name) const { return m_folder / name; }
    std::filesystem::path write(const char* name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

  private:
    std::filesystem::path m_folder;
};

TEST_F(FileReader, ReadsBothFormats) {
    const auto xml = readPropertyListFile(write("xml", samples::document("<integer>5</integer>")));
    EXPECT_EQ(xml.status, FileStatus::Ok);
    EXPECT_EQ(xml.value, Value(5));
    samples::Binary binary;
    binary.add("\x10\x05");
    const auto file = readPropertyListFile(write("binary", binary.bytes()));
    EXPECT_EQ(file.status, FileStatus::Ok);
    EXPECT_EQ(file.value, Value(5));
}

TEST_F(FileReader, FollowsALink) {
    std::filesystem::create_symlink(write("file", samples::document("<true/>")), path("link"));
    EXPECT_EQ(readPropertyListFile(path("link")).value, Value(true));
}

TEST_F(FileReader, TellsWhyThereIsNothing) {
    EXPECT_EQ(readPropertyListFile(path("missing")).status, FileStatus::NotReadable);
    EXPECT_EQ(readPropertyListFile("").status, FileStatus::NotReadable);
    EXPECT_EQ(readPropertyListFile(write("text", "hello")).status, FileStatus::NotPropertyList);
    EXPECT_EQ(readPropertyListFile(write("empty", "")).status, FileStatus::NotPropertyList);
    EXPECT_TRUE(readPropertyListFile(path("text")).value.isNothing());
}

TEST_F(FileReader, ReadsOnlyRegularFilesAndNeverWaits) {
    ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(readPropertyListFile(path("fifo")).status, FileStatus::NotReadable);
    EXPECT_EQ(readPropertyListFile(path("")).status, FileStatus::NotReadable) << "a directory";
    EXPECT_EQ(readPropertyListFile("/dev/zero").status, FileStatus::NotReadable);
}

TEST_F(FileReader, RefusesALargeFileUnread) {
    std::filesystem::resize_file(write("sparse", ""), 1ULL << 30U);
    EXPECT_EQ(readPropertyListFile(path("sparse")).status, FileStatus::TooLarge);
    std::filesystem::resize_file(path("sparse"), kMaxBytes + 1);
    EXPECT_EQ(readPropertyListFile(path("sparse")).status, FileStatus::TooLarge);
    std::filesystem::resize_file(path("sparse"), kMaxBytes);
    EXPECT_EQ(readPropertyListFile(path("sparse")).status, FileStatus::NotPropertyList);
}

} // namespace
} // namespace quorvi::plist
