// Another user's link in place of a settings file: in a folder that everybody may write to, following it
// would apply our rights to a file of their choice.
#include <gtest/gtest.h>

#include <tuple>

#include <unistd.h>

#include "base/AtomicFile.h"
#include "model/ConfigFileFixture.h"

namespace quorvi {
namespace {

using namespace test;
namespace fs = std::filesystem;
using FileNames = std::set<std::string>;

constexpr uid_t kNobody = 65534;

class LinksOfOthers : public ConfigFileTest {
  protected:
    void SetUp() override {
        if (::geteuid() != 0)
            GTEST_SKIP() << "needs a link of another user";
        ASSERT_EQ(::chmod(folder.path().c_str(), 01777), 0);
    }
    [[nodiscard]] fs::path target() const { return elsewhere / "target"; }
    void putLink(uid_t owner) const {
        fs::create_symlink(target(), path());
        ASSERT_EQ(::lchown(path().c_str(), owner, owner), 0);
    }
    [[nodiscard]] bool isStillTheLink() const {
        return fs::is_symlink(path()) && folder.names() == FileNames{"file.plist"};
    }

    TemporaryFolder elsewhere;
};

TEST_F(LinksOfOthers, areNotFollowedInEverybodysFolder) {
    writeFile(target(), "theirs");
    putLink(kNobody);
    for (int i = 0; i < 2; ++i) { // neither before it was loaded nor after
        EXPECT_FALSE(file.save(settings(1)));
        EXPECT_EQ(file.error(), EACCES);
        EXPECT_FALSE(load());
    }
    EXPECT_FALSE(replaceFileAtomically(path(), "new"));
    EXPECT_FALSE(syncFile(path()));
    EXPECT_EQ(readFile(target()), "theirs");
    EXPECT_TRUE(isStillTheLink());
    EXPECT_EQ(elsewhere.names(), FileNames{"target"});
}

TEST_F(LinksOfOthers, createNoFileInEverybodysFolder) {
    putLink(kNobody);
    EXPECT_FALSE(file.save(settings(1)));
    EXPECT_EQ(file.error(), EACCES);
    EXPECT_FALSE(replaceFileAtomically(path(), "new"));
    EXPECT_TRUE(isStillTheLink());
    EXPECT_EQ(elsewhere.names(), FileNames());
}

TEST_F(LinksOfOthers, areNotFollowedBehindALinkOfOnesOwnEither) {
    writeFile(target(), "theirs");
    putLink(kNobody);
    const TemporaryFolder home;
    fs::create_symlink(path(), home / "settings.plist");
    ConfigFile linked("quorvi", home / "settings.plist");
    EXPECT_FALSE(linked.save(settings(1)));
    EXPECT_EQ(linked.error(), EACCES);
    EXPECT_EQ(readFile(target()), "theirs");
}

TEST_F(LinksOfOthers, doNotStandInTheWayOnceTheyAreGone) {
    putLink(kNobody);
    EXPECT_FALSE(file.save(settings(1)));
    fs::remove(path());
    EXPECT_TRUE(file.save(settings(1)));
    EXPECT_EQ(file.error(), 0);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(path())));
}

// A link that only a trusted user can have created is followed.
TEST_F(LinksOfOthers, areFollowedWhereNotEverybodyCanPutThem) {
    for (const auto& [mode, owner, ownerOfFolder] : {std::tuple(01777U, 0U, kNobody),
             std::tuple(01777U, kNobody, kNobody), std::tuple(01755U, kNobody, 0U)}) {
        SCOPED_TRACE(std::to_string(mode) + " " + std::to_string(owner));
        ASSERT_EQ(::chown(folder.path().c_str(), ownerOfFolder, ownerOfFolder), 0);
        ASSERT_EQ(::chmod(folder.path().c_str(), mode), 0);
        putLink(owner);
        EXPECT_TRUE(file.save(settings(1)));
        EXPECT_TRUE(isStillTheLink());
        EXPECT_TRUE(fs::is_regular_file(target()));
        fs::remove(path());
        fs::remove(target());
        file.forget();
    }
}

} // namespace
} // namespace quorvi
