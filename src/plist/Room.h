// A vector that stores its first elements next to itself instead of on the heap.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace quorvi::plist {

/// Memory for one block of up to `Count` elements.
template <typename T, std::size_t Count>
class Room {
  public:
    Room() = default;
    Room(const Room&) = delete; // vectors point into it
    Room& operator=(const Room&) = delete;

    /// Null if it is in use or too small.
    [[nodiscard]] T* take(std::size_t count) {
        if (m_taken || count > Count)
            return nullptr;
        m_taken = true;
        return reinterpret_cast<T*>(m_bytes.data());
    }
    /// Returns false if the memory is not from this room.
    [[nodiscard]] bool giveBack(const T* memory) {
        if (memory != reinterpret_cast<const T*>(m_bytes.data()))
            return false;
        m_taken = false;
        return true;
    }

  private:
    alignas(T) std::array<std::byte, Count * sizeof(T)> m_bytes;
    bool m_taken = false;
};

/// Allocates from a room that outlives the vector while it fits, otherwise from the heap. Without a room it
/// is an ordinary allocator. Vectors with different rooms do not swap.
template <typename T, std::size_t Count>
class RoomAllocator {
  public:
    using value_type = T;
    template <typename U>
    struct rebind { // NOLINT(readability-identifier-naming): the standard's name
        using other = RoomAllocator<U, Count>;
    };

    RoomAllocator() = default;
    explicit RoomAllocator(Room<T, Count>& room) : m_room(&room) {}

    [[nodiscard]] T* allocate(std::size_t count) {
        T* const memory = m_room ? m_room->take(count) : nullptr;
        return memory ? memory : std::allocator<T>().allocate(count);
    }
    void deallocate(T* memory, std::size_t count) {
        if (!m_room || !m_room->giveBack(memory))
            std::allocator<T>().deallocate(memory, count);
    }
    bool operator==(const RoomAllocator&) const = default;

  private:
    Room<T, Count>* m_room = nullptr;
};

template <typename T, std::size_t Count>
using RoomyVector = std::vector<T, RoomAllocator<T, Count>>;

} // namespace quorvi::plist
