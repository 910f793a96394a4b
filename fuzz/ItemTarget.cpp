// Exported profiles and macros: an import of the file, without a window.
#include <algorithm>
#include <set>

#include "RoundTrip.h"
#include "Scratch.h"
#include "Trees.h"
#include "macros/StepDelays.h"
#include "macros/StepReplacement.h"
#include "macros/StepText.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "model/SettingsDocument.h"
#include "plist/Reader.h"

using namespace quorvi;

namespace {

using fuzz::require;
using plist::Array;
using plist::Dictionary;
using Read = ReadItem (*)(const std::filesystem::path&);

const std::string& filePath() {
    static const std::string path = fuzz::scratch().path("item.plist");
    return path;
}

/// Requires that all names in the array are different and fit the device.
void requireNames(const Array& array) {
    std::set<std::u16string> names;
    for (const auto& item : array.items()) {
        const auto name = item.dictionary().string(keys::name);
        require(!name.empty() && name.size() <= limits::nameUnits, "an imported name has 1 to 20 units");
        require(names.insert(name).second, "an imported name is unique");
    }
}

/// Imports the file as often as there is room, like a user who wants copies.
void import(const Array& array, Read read, int times) {
    for (int i = 0; i < times; ++i)
        appendItem(array, read(filePath()).item, u"Untitled");
    require(array.size() == static_cast<std::size_t>(times), "an import appends one item");
    requireNames(array);
}

void requireSteps(const Dictionary& macro) {
    const auto steps = macro.array(keys::steps);
    const auto count = steps.size();
    require(count <= limits::macroSteps, "an imported macro has no more steps than there is room for");
    for (const auto& step : steps.items())
        static_cast<void>(stepText(step.dictionary(), [](auto english) { return std::u16string(english); }));
    for (std::size_t i = 0; i < std::min<std::size_t>(count, limits::macroSteps); ++i)
        replaceStep(steps, i, i % 2 == 0 ? 1 : 129, static_cast<std::uint8_t>(i));
    setDelayForAllSteps(steps, 10);
    require(steps.size() == count, "replacing steps leaves their number");
}

void requireExport(const Dictionary& item, Read read) {
    require(!writeItemFile(item, filePath()), "an imported item can be exported");
    const auto again = read(filePath()).item;
    require(fuzz::hasSurvived(item, again), "an exported item is the same when it is imported");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Bytes bytes(data, size);
    const auto value = plist::readPropertyList(bytes);
    if (!value.dictionary() || !fuzz::isModest(value))
        return 0;
    fuzz::fill(filePath(), bytes);
    const auto profile = readProfileFile(filePath()).item;
    const auto macro = readMacroFile(filePath()).item;
    if (!profile && !macro)
        return 0;

    const auto tree = fuzz::emptyTree();
    if (profile)
        import(tree.array(keys::profiles), readProfileFile, 3);
    if (macro)
        import(tree.array(keys::macros), readMacroFile, 2);
    require(KyvarFindUnusedMacroID(tree.array(keys::macros)) <= 2, "the lowest free id is found");
    cleanUpSettings(tree);
    fuzz::requireEncoding(tree);
    fuzz::requireSettling(tree);
    for (const auto& item : tree.array(keys::macros).items())
        requireSteps(item.dictionary());
    fuzz::requireEncoding(tree);
    if (profile)
        requireExport(profile, readProfileFile);
    if (macro)
        requireExport(macro, readMacroFile);
    return 0;
}
