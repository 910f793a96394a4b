// Ownership of a file descriptor.
#pragma once

#include <utility>

#include <unistd.h>

namespace quorvi::inputd {

class Descriptor {
  public:
    Descriptor() = default;
    /// Takes ownership; negative for none.
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            reset();
            m_fd = std::exchange(other.m_fd, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    explicit operator bool() const { return m_fd >= 0; }

    void reset() {
        if (m_fd >= 0)
            close(m_fd);
        m_fd = -1;
    }

  private:
    int m_fd = -1;
};

} // namespace quorvi::inputd
