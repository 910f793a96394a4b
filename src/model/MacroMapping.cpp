#include "model/MacroMapping.h"

#include "model/BigEndian.h"
#include "model/CodedSteps.h"
#include "model/Keys.h"
#include "model/KyvarName.h"
#include "model/StepCode.h"

namespace quorvi {

namespace {

using plist::Dictionary;

constexpr std::size_t kBytesBeforeSteps = offsetof(MacroBody, steps);

void storeName(const std::u16string* name, KyvarName& buffer) {
    static const std::u16string unnamed = u"?";
    if (KyvarStringToName(name, buffer.data(), buffer.size()) == 0)
        KyvarStringToName(&unnamed, buffer.data(), buffer.size());
}

} // namespace

bool KyvarMacroDictToStruct(const Dictionary& macro, MacroHeader* header, MacroBody* body) {
    if (!macro || !header || !body)
        return false;
    *header = {};
    *body = {};
    const auto stepBytes = encodeSteps(macro.array(keys::steps), body->steps);
    header->macroId = static_cast<std::uint8_t>(macro.integer(keys::macroId));
    storeBigEndian(header->length, static_cast<std::uint32_t>(kBytesBeforeSteps + stepBytes));
    storeName(macro.value(keys::name).string(), body->name);
    storeBigEndian(body->delay, static_cast<std::uint32_t>(macro.integer(keys::delay)));
    return true;
}

Dictionary KyvarMacroStructToDict(const MacroHeader* header, const MacroBody* body) {
    if (!header || !body)
        return {};
    const auto stepBytes = stepBytesOf(*header, *body);
    if (!stepBytes)
        return {};
    auto macro = Dictionary::create();
    macro.append(keys::macroId, std::int32_t{header->macroId});
    macro.append(keys::name, KyvarNameToString(body->name.data(), body->name.size()).value_or(u""));
    macro.append(keys::delay, static_cast<std::int32_t>(loadBigEndian(body->delay)));
    macro.append(keys::steps, decodeSteps(*stepBytes));
    return macro;
}

} // namespace quorvi
