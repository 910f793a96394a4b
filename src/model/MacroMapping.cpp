#include "model/MacroMapping.h"

#include <span>

#include "model/BigEndian.h"
#include "model/Keys.h"
#include "model/KyvarName.h"
#include "model/StepCode.h"

namespace quorvi {

namespace {

using plist::Dictionary;

constexpr std::size_t bytesBeforeSteps = offsetof(MacroBody, steps);

void storeName(const std::u16string* name, KyvarName& buffer) {
    static const std::u16string unnamed = u"?";
    if (KyvarStringToName(name, buffer.data(), buffer.size()) == 0)
        KyvarStringToName(&unnamed, buffer.data(), buffer.size());
}

/// The step bytes that a length covers; the length is from a device and may be anything up to 178.
std::span<const std::uint8_t> usedStepBytes(const MacroBody& body, std::size_t length) {
    const auto used = length > bytesBeforeSteps ? length - bytesBeforeSteps : 0;
    return std::span(body.steps).first(used);
}

} // namespace

bool KyvarMacroDictToStruct(const Dictionary& macro, MacroHeader* header, MacroBody* body) {
    if (!macro || !header || !body)
        return false;
    *header = {};
    *body = {};
    const auto stepBytes = encodeSteps(macro.array(keys::steps), body->steps);
    header->macroId = static_cast<std::uint8_t>(macro.integer(keys::macroId));
    storeBigEndian(header->length, static_cast<std::uint32_t>(bytesBeforeSteps + stepBytes));
    storeName(macro.value(keys::name).string(), body->name);
    storeBigEndian(body->delay, static_cast<std::uint32_t>(macro.integer(keys::delay)));
    return true;
}

Dictionary KyvarMacroStructToDict(const MacroHeader* header, const MacroBody* body) {
    if (!header || !body || header->macroId > limits::highestMacroId || isUnusedName(body->name))
        return {};
    const auto length = loadBigEndian(header->length);
    if (length < 1 || length > sizeof(MacroBody))
        return {};
    auto macro = Dictionary::create();
    macro.append(keys::macroId, std::int32_t{header->macroId});
    macro.append(keys::name, KyvarNameToString(body->name.data(), body->name.size()).value_or(u""));
    macro.append(keys::delay, static_cast<std::int32_t>(loadBigEndian(body->delay)));
    macro.append(keys::steps, decodeSteps(usedStepBytes(*body, length)));
    return macro;
}

} // namespace quorvi
