// Settings files of any bytes, XML and binary.
#include "RoundTrip.h"
#include "Scratch.h"
#include "SettingsFile.h"
#include "Trees.h"
#include "model/Keys.h"
#include "plist/Reader.h"

using namespace quorvi;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Bytes bytes(data, size);
    const auto value = plist::readPropertyList(bytes);
    if (value.isNothing() || !fuzz::isModest(value))
        return 0;
    const auto tree = value.dictionary().dictionary(keys::storage);
    if (tree) {
        fuzz::requireEncoding(tree);
        fuzz::requireSettling(tree);
    }
    // Every save is a round trip. Files without a tree are saved to seldom enough to leave time for the
    // others.
    if (!tree && (!value.dictionary() || size % 8 != 0)) {
        fuzz::requireRoundTrip(value);
        return 0;
    }
    static const std::string path = fuzz::scratch().path("settings.plist");
    fuzz::fill(path, bytes);
    fuzz::requireSettingsFile(path, value.dictionary());
    return 0;
}
