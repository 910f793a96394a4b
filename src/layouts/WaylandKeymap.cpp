#include "layouts/WaylandKeymap.h"

#include <cstring>

#include <sys/mman.h>
#include <sys/stat.h>

namespace quorvi {

namespace {

/// The beginning of a file, mapped for reading.
class MappedFile {
  public:
    MappedFile(int fd, std::size_t size)
        : m_size(size), m_address(mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0)) {}
    ~MappedFile() {
        if (isMapped())
            munmap(m_address, m_size);
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    [[nodiscard]] bool isMapped() const { return m_address != MAP_FAILED; }
    [[nodiscard]] const char* text() const { return static_cast<const char*>(m_address); }

  private:
    std::size_t m_size;
    void* m_address;
};

/// Reading a mapping past the file's end would be a bus error.
bool holds(int fd, std::uint32_t size) {
    struct stat status {};
    return fstat(fd, &status) == 0 && status.st_size >= off_t{size};
}

} // namespace

XkbKeymap keymapInFile(int fd, std::uint32_t size) {
    if (size == 0 || size > largestKeymap || !holds(fd, size))
        return nullptr;
    const MappedFile file(fd, size);
    if (!file.isMapped())
        return nullptr;
    const std::size_t length = strnlen(file.text(), size);
    const XkbContext context = newXkbContext();
    if (length == size || !context)
        return nullptr;
    return XkbKeymap(xkb_keymap_new_from_buffer(
        context.get(), file.text(), length, XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace quorvi
