#include "plist/BinaryBounds.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace quorvi::plist {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

/// The types of the format that matter here: the high four bits of an object's first byte. The low four are
/// its length, or 15 when a size object with the length follows.
enum Marker : std::uint8_t {
    Int = 0x1,
    DataBytes = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    List = 0xA,
    Set = 0xC,
    Map = 0xD
};
constexpr std::uint8_t kLengthFollows = 0xF;

std::uint64_t bigEndian(Bytes bytes) {
    std::uint64_t number = 0;
    for (const std::uint8_t byte : bytes)
        number = number << 8U | byte;
    return number;
}

/// An object's first byte taken apart. The length is in elements.
struct Object {
    std::uint8_t marker = 0;
    std::uint64_t length = 0;
    Bytes body; ///< up to the end of all objects
};

class Walk {
  public:
    Walk(Bytes file, const Bounds& bounds) : m_file(file), m_bounds(bounds) {}

    bool run() { return readTrailer() && visit(m_root, 1); }

  private:
    /// The result of walking an object. The height is 1 for a scalar, and for a container at least 2, so that
    /// the level of a container stays within the depth and its scalars one below.
    struct Known {
        bool walked = false;
        bool canBeKey = false;
        std::uint32_t height = 1;
        Cost cost;
    };

    bool readTrailer() {
        if (!looksBinary(m_file) || m_file.size() < kMagic.size() + kTrailerSize ||
            m_file.size() > m_bounds.bytes)
            return false;
        const Bytes trailer = m_file.last(kTrailerSize);
        m_offsetSize = trailer[6];
        m_referenceSize = trailer[7];
        const std::uint64_t count = bigEndian(trailer.subspan(8, 8));
        m_root = bigEndian(trailer.subspan(16, 8));
        m_tableAt = bigEndian(trailer.subspan(24, 8));
        const std::uint64_t tableEnd = m_file.size() - kTrailerSize;
        if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
            return false;
        if (count < 1 || count > m_bounds.nodes || m_root >= count)
            return false;
        if (m_tableAt < kMagic.size() || m_tableAt > tableEnd || count * m_offsetSize > tableEnd - m_tableAt)
            return false;
        m_known.resize(count);
        return true;
    }

    std::optional<Object> objectAt(std::uint64_t index) const {
        const std::uint64_t at = bigEndian(m_file.subspan(m_tableAt + index * m_offsetSize, m_offsetSize));
        if (at < kMagic.size() || at >= m_tableAt)
            return std::nullopt;
        const Bytes bytes = m_file.subspan(at, m_tableAt - at);
        Object object{static_cast<std::uint8_t>(bytes[0] >> 4U), bytes[0] & 0xFU, bytes.subspan(1)};
        const bool isCounted = object.marker >= DataBytes && object.marker != 0x8;
        return isCounted && object.length == kLengthFollows ? withLength(object) : object;
    }

    static std::optional<Object> withLength(Object object) {
        if (object.body.empty() || object.body[0] >> 4U != Int || (object.body[0] & 0xFU) > 3)
            return std::nullopt;
        const std::size_t size = std::size_t{1} << (object.body[0] & 0xFU);
        if (object.body.size() <= size)
            return std::nullopt;
        object.length = bigEndian(object.body.subspan(1, size));
        object.body = object.body.subspan(1 + size);
        return object;
    }

    /// Adds the object's cost to the total; walks it only where it occurs for the first time. An object
    /// within itself ends at the depth limit.
    // NOLINTNEXTLINE(misc-no-recursion)
    bool visit(std::uint64_t index, std::size_t level) {
        Known& known = m_known[index];
        if (known.walked) {
            m_total += known.cost;
            return m_total.isBearable(m_bounds) && level + known.height - 1 <= kMaxDepth + 1;
        }
        const auto object = objectAt(index);
        if (!object)
            return false;
        const Cost before = m_total;
        ++m_total.nodes;
        if (!measure(*object, known, level) || !m_total.isBearable(m_bounds))
            return false;
        known.cost = m_total - before;
        known.walked = true;
        return true;
    }

    bool measure(const Object& object, Known& known, std::size_t level) {
        switch (object.marker) {
        case List:
        case Set:
            return children(object, 1, known, level);
        case Map:
            m_total.work += dictionaryWork(std::min(object.length, kMaxNodes));
            return children(object, 2, known, level);
        case DataBytes:
        case Ascii:
            known.canBeKey = object.marker == Ascii;
            return text(object, 1);
        case Utf16:
            if (!text(object, 2))
                return false;
            known.canBeKey = !hasZeroUnit(object.body.first(object.length * 2));
            return true;
        default:
            return true; // a number, a date or a boolean; libplist checks its bytes
        }
    }

    /// A text or data of so many bytes an element.
    bool text(const Object& object, std::uint64_t elementSize) {
        const bool fits = object.length <= object.body.size() / elementSize;
        if (fits)
            m_total.bytes += object.length * elementSize;
        return fits;
    }

    /// libplist ends the process over a key with a zero unit.
    static bool hasZeroUnit(Bytes units) {
        for (std::size_t i = 0; i + 1 < units.size(); i += 2) {
            if (units[i] == 0 && units[i + 1] == 0)
                return true;
        }
        return false;
    }

    /// The children of a list, or the keys and then the values of a dictionary.
    bool children(const Object& object, std::uint64_t perElement, Known& known, std::size_t level) {
        const std::uint64_t size = perElement * m_referenceSize;
        if (level > kMaxDepth || object.length > object.body.size() / size)
            return false;
        const std::uint64_t count = object.length * perElement;
        known.height = 2;
        for (std::uint64_t i = 0; i < count; ++i) {
            const std::uint64_t index = bigEndian(object.body.subspan(i * m_referenceSize, m_referenceSize));
            if (index >= m_known.size() || !visit(index, level + 1))
                return false;
            const Known& child = m_known[index];
            if (perElement == 2 && i < object.length && !child.canBeKey)
                return false;
            known.height = std::max(known.height, child.height + 1);
        }
        return true;
    }

    Bytes m_file;
    Bounds m_bounds;
    std::uint64_t m_offsetSize = 0;
    std::uint64_t m_referenceSize = 0;
    std::uint64_t m_root = 0;
    std::uint64_t m_tableAt = 0;
    Cost m_total;
    std::vector<Known> m_known;
};

} // namespace

bool isBoundedBinary(std::span<const std::uint8_t> bytes, const Bounds& bounds) {
    return Walk(bytes, bounds).run();
}

bool looksBinary(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= kMagic.size() && std::equal(kMagic.begin(), kMagic.end(), bytes.begin());
}

} // namespace quorvi::plist
