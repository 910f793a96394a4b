// Records of any content, and files of them of any length.
//
// The input is a record without its unused slots, because 13232 bytes of which most mean nothing would take
// most of the time: a byte of options, the 7 bytes in front of the slots, and then slots, each behind a byte
// that says which. What is missing is zero, and so is every other macro; every other profile is marked as
// empty.
#include <algorithm>
#include <memory>

#include "RoundTrip.h"
#include "Scratch.h"
#include "Trees.h"
#include "model/ProfileMapping.h"
#include "tools/Input.h"

using namespace quorvi;

namespace {

enum Options : std::uint8_t {
    isWritten = 0x80, ///< the tree is written as a property list too, when it is a small one
    isAFile = 0x40,   ///< the input is a file that should be a record
};

class Input {
  public:
    explicit Input(fuzz::Bytes bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool atEnd() const { return m_bytes.empty(); }
    [[nodiscard]] fuzz::Bytes rest() const { return m_bytes; }

    void take(void* target, std::size_t size) {
        const auto there = m_bytes.first(std::min(size, m_bytes.size()));
        std::ranges::copy(there, static_cast<std::uint8_t*>(target));
        m_bytes = m_bytes.subspan(there.size());
    }

  private:
    fuzz::Bytes m_bytes;
};

void takeProfile(Input& input, std::size_t slot, ConfigRecord& record) {
    record.profileNames[slot] = {};
    input.take(&record.profileNames[slot], sizeof(ProfileNameEntry));
    input.take(&record.profiles[slot], sizeof(ProfileRecord));
}

void takeMacro(Input& input, std::size_t slot, ConfigRecord& record) {
    input.take(&record.macroHeaders[slot], sizeof(MacroHeader));
    input.take(&record.macroBodies[slot], sizeof(MacroBody));
}

/// On the heap and of the exact size, so that the sanitizer sees any access beyond it.
std::unique_ptr<ConfigRecord> takeRecord(Input& input) {
    auto record = std::make_unique<ConfigRecord>();
    for (int slot = 0; slot < limits::profiles; ++slot)
        clearProfileSlot(slot + 1, record->profiles[slot], record->profileNames[slot]);
    input.take(record.get(), offsetof(ConfigRecord, profileNames));
    while (!input.atEnd()) {
        std::uint8_t tag = 0;
        input.take(&tag, 1);
        const std::size_t slot = tag % (limits::profiles + limits::macroSlots);
        if (slot < limits::profiles)
            takeProfile(input, slot, *record);
        else
            takeMacro(input, slot - limits::profiles, *record);
    }
    return record;
}

void requireLengthOfFile(fuzz::Bytes bytes) {
    static const std::string path = fuzz::scratch().path("record.bin");
    fuzz::fill(path, bytes);
    fuzz::require(
        tools::readBytes(path, bytes.size()).value.size() == bytes.size(), "a file of the length is read");
    fuzz::require(
        !tools::readBytes(path, sizeof(ConfigRecord)).isGood(), "a file of another length is refused");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({data, size});
    std::uint8_t options = 0;
    input.take(&options, 1);
    if (options & isAFile && size < sizeof(ConfigRecord))
        requireLengthOfFile(input.rest());
    const auto tree = fuzz::requireDecoding(*takeRecord(input));
    if (size % 4 == 0) // takes five times as long
        fuzz::requireSettling(tree);
    if (options & isWritten && size % 8 == 1 && size <= 200) // twenty times
        fuzz::requireRoundTrip(tree);
    return 0;
}
