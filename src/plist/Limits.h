// How large a property list may be. A settings file holds some 50 KB, 1,500 values and 6 levels, so no real
// file comes near the bounds, yet a hostile one cannot exhaust the stack or the memory of the settings
// application that loads the panel, or block it. The writer applies the same limits, so everything written
// can be read back.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvi::plist {

/// Nesting of containers: 128 levels under another program's key, and then some. libplist copies, writes and
/// frees a tree by recursion, about 200 bytes of stack a level, so 50 KB here.
inline constexpr std::size_t kMaxDepth = 256;

/// Values and keys of a tree; shared objects of a binary file count once for each occurrence.
inline constexpr std::uint64_t kMaxNodes = 1U << 20U;

/// Bytes of a file, and of all texts and data of a tree.
inline constexpr std::uint64_t kMaxBytes = 64U << 20U;

/// libplist's work that grows with the square of the input: looking up a dictionary's keys, which anyone can
/// choose to collide, and taking the entities out of a text. In key comparisons, so a dictionary may hold
/// 23,170 keys; 2^28 of them take two to four seconds at worst.
inline constexpr std::uint64_t kMaxWork = 1U << 28U;

/// How much of a property list is read. Callers that expect a small one should set small bounds: a small
/// binary file can name the same object again and again, and a tree takes a kilobyte a value.
struct Bounds {
    std::uint64_t nodes = kMaxNodes;
    std::uint64_t bytes = kMaxBytes; ///< of the file, and of all texts and data of the tree
};

/// What reading a part of a property list costs.
struct Cost {
    std::uint64_t nodes = 0;
    std::uint64_t bytes = 0;
    std::uint64_t work = 0;

    void operator+=(const Cost& other) {
        nodes += other.nodes;
        bytes += other.bytes;
        work += other.work;
    }
    /// The cost added since `before`.
    [[nodiscard]] Cost operator-(const Cost& before) const {
        return {nodes - before.nodes, bytes - before.bytes, work - before.work};
    }
    [[nodiscard]] bool isBearable(const Bounds& bounds = {}) const {
        return nodes <= bounds.nodes && bytes <= bounds.bytes && work <= kMaxWork;
    }
};

/// The work of filling a dictionary, in key comparisons at worst.
[[nodiscard]] constexpr std::uint64_t dictionaryWork(std::uint64_t keys) {
    return keys * keys / 2;
}

/// The work of taking the entities out of a text of that length in the file. For each entity libplist moves
/// the rest of the text: half of it on average, at some 64 bytes in the time of a key comparison.
[[nodiscard]] constexpr std::uint64_t entityWork(std::uint64_t entities, std::uint64_t length) {
    return entities * length / 128;
}

} // namespace quorvi::plist
