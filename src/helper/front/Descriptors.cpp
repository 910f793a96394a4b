#include "helper/front/Descriptors.h"

#include <array>

#include <sys/epoll.h>
#include <unistd.h>

namespace quorvi::front {

Descriptors::Descriptors() : m_epoll(epoll_create1(EPOLL_CLOEXEC)) {}

Descriptors::~Descriptors() {
    if (m_epoll >= 0)
        close(m_epoll);
}

void Descriptors::serve() {
    std::array<epoll_event, 8> ready{};
    const int count = epoll_wait(m_epoll, ready.data(), static_cast<int>(ready.size()), 0);
    for (int i = 0; i < count; ++i) {
        const auto found = m_functions.find(ready[static_cast<std::size_t>(i)].data.fd);
        if (found == m_functions.end())
            continue; // one that was served before it has taken it away
        const auto function = found->second;
        (*function)();
    }
}

void Descriptors::watch(int fd, std::function<void()> readable) {
    epoll_event wanted{};
    wanted.events = EPOLLIN;
    wanted.data.fd = fd;
    epoll_ctl(m_epoll, EPOLL_CTL_ADD, fd, &wanted);
    m_functions[fd] = std::make_shared<const Function>(std::move(readable));
}

void Descriptors::unwatch(int fd) {
    if (m_functions.erase(fd) > 0)
        epoll_ctl(m_epoll, EPOLL_CTL_DEL, fd, nullptr);
}

} // namespace quorvi::front
