// Records of any content, and files of them of any length.
//
// The input is a byte of options and a record as RecordInput.h says, with as many slots as there are.
#include "RecordInput.h"
#include "RoundTrip.h"
#include "Scratch.h"
#include "Trees.h"
#include "tools/Input.h"

using namespace quorvi;

namespace {

enum Options : std::uint8_t {
    isWritten = 0x80, ///< the tree is written as a property list too, when it is a small one
    isAFile = 0x40,   ///< the input is a file that should be a record
};

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
    fuzz::Input input({data, size});
    const auto options = input.number<std::uint8_t>();
    if (options & isAFile && size < sizeof(ConfigRecord))
        requireLengthOfFile(input.rest());
    const auto record = fuzz::takeHead(input);
    while (!input.atEnd())
        fuzz::takeSlot(input, *record);
    const auto tree = fuzz::requireDecoding(*record);
    if (size % 4 == 0) // takes five times as long
        fuzz::requireSettling(tree);
    if (options & isWritten && size % 8 == 1 && size <= 200) // twenty times
        fuzz::requireRoundTrip(tree);
    return 0;
}
