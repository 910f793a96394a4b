// Keymaps sent by a compositor, and invalid ones.
#include "layouts/WaylandKeymap.h"

#include <gtest/gtest.h>

#include <string>

#include <sys/mman.h>
#include <unistd.h>

using namespace quorvi;

namespace {

/// A file in memory.
class File {
  public:
    explicit File(const std::string& content) : m_fd(memfd_create("keymap", MFD_CLOEXEC)) {
        EXPECT_EQ(write(m_fd, content.data(), content.size()), static_cast<ssize_t>(content.size()));
    }
    ~File() { close(m_fd); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    [[nodiscard]] int fd() const { return m_fd; }

  private:
    int m_fd;
};

std::string keymapText() {
    const XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const xkb_rule_names names{"evdev", "pc105", "us,de", "", ""};
    const XkbKeymap keymap(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    char* text = xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1);
    const std::string result = text;
    std::free(text); // NOLINT(*-no-malloc): from libxkbcommon
    return result;
}

XkbKeymap keymapIn(const std::string& content) {
    return keymapInFile(File(content).fd(), static_cast<std::uint32_t>(content.size()));
}

const std::string end(1, '\0');

TEST(WaylandKeymap, isReadFromItsText) {
    const XkbKeymap keymap = keymapIn(keymapText() + end);
    ASSERT_NE(keymap, nullptr);
    EXPECT_EQ(xkb_keymap_num_layouts(keymap.get()), 2u);
}

TEST(WaylandKeymap, endsAtItsFirstZero) {
    EXPECT_NE(keymapIn(keymapText() + end + "what follows is none of ours"), nullptr);
}

TEST(WaylandKeymap, isReadFromAFileThatIsLarger) {
    const std::string text = keymapText() + end;
    const File file(text + std::string(10000, 'x'));
    EXPECT_NE(keymapInFile(file.fd(), static_cast<std::uint32_t>(text.size())), nullptr);
}

TEST(WaylandKeymap, leavesItsFileOpen) {
    const File file("");
    EXPECT_EQ(keymapInFile(file.fd(), 1), nullptr);
    EXPECT_EQ(write(file.fd(), "x", 1), 1);
}

TEST(WaylandKeymap, isNoneWithoutAnEnd) {
    EXPECT_EQ(keymapIn(keymapText()), nullptr);
    EXPECT_EQ(keymapIn(std::string(4096, ' ')), nullptr); // the mapping ends with the page
}

TEST(WaylandKeymap, isNoneWhenItIsEmptyBrokenOrSomethingElse) {
    const std::string text = keymapText();
    EXPECT_EQ(keymapIn(""), nullptr);
    EXPECT_EQ(keymapIn(end), nullptr);
    EXPECT_EQ(keymapIn(text.substr(0, text.size() / 2) + end), nullptr);
    EXPECT_EQ(keymapIn(std::string("\x7F"
                                   "ELF") +
                       std::string(5000, '\xA5') + end),
        nullptr);
}

TEST(WaylandKeymap, isNoneWhenItsFileIsSmallerThanItClaims) {
    const std::string text = keymapText() + end;
    const File file(text);
    EXPECT_EQ(keymapInFile(file.fd(), static_cast<std::uint32_t>(text.size()) + 1), nullptr);
    EXPECT_EQ(keymapInFile(file.fd(), largestKeymap), nullptr);
}

TEST(WaylandKeymap, isNoneWhenItIsTooLarge) {
    const File file(keymapText() + end);
    ASSERT_EQ(ftruncate(file.fd(), off_t{largestKeymap} + 1), 0);
    EXPECT_NE(keymapInFile(file.fd(), largestKeymap), nullptr);
    EXPECT_EQ(keymapInFile(file.fd(), largestKeymap + 1), nullptr);
    EXPECT_EQ(keymapInFile(file.fd(), 0xFFFFFFFF), nullptr);
}

TEST(WaylandKeymap, isNoneWithoutAFile) {
    EXPECT_EQ(keymapInFile(-1, 100), nullptr);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(keymapInFile(ends[0], 100), nullptr);
    close(ends[0]);
    close(ends[1]);
}

} // namespace
