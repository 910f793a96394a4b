#include "tools/Records.h"

#include <cstring>
#include <memory>

#include "base/AtomicFile.h"
#include "model/ConfigFileStore.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "tools/EarlierSettings.h"
#include "tools/HelperNews.h"
#include "tools/Input.h"
#include "tools/Json.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

/// Why KyvarConfigDictToStruct fails, in words.
std::string encodingFault(const plist::Dictionary& tree) {
    if (!tree.dictionary(keys::settings))
        return "it has no \"settings\" dictionary";
    if (!tree.array(keys::profiles))
        return "it has no \"profiles\" array";
    return "none of its profiles can be encoded; a profile needs \"name\", \"stages\" and \"buttons\"";
}

/// Why KyvarValidateConfig fails, in words.
std::string validityFault(const plist::Dictionary& tree) {
    std::string missing;
    for (const auto key : {keys::settings, keys::profiles, keys::macros})
        if (!tree.has(key))
            missing.append(missing.empty() ? "it has no \"" : ", no \"").append(key).append("\"");
    if (!missing.empty())
        return missing;
    if (!tree.has(keys::version))
        return "it has no \"version\"";
    return "its version is " + std::to_string(tree.integer(keys::version)) + "; at least " +
           std::to_string(limits::minimumVersion) + " is needed";
}

} // namespace

Outcome encode(const Arguments& arguments) {
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    const auto record = std::make_unique<ConfigRecord>();
    if (!KyvarConfigDictToStruct(settings.value, record.get()))
        return refused(faultOf(arguments[0], encodingFault(settings.value)));
    std::string bytes(sizeof *record, '\0');
    std::memcpy(bytes.data(), record.get(), sizeof *record);
    if (!replaceFileAtomically(arguments[1], bytes))
        return refused(faultOf(arguments[1], "it cannot be written"));
    return done();
}

Outcome decode(const Arguments& arguments) {
    const auto bytes = readBytes(arguments[0], sizeof(ConfigRecord));
    if (!bytes.isGood())
        return refused(bytes.fault);
    const auto record = std::make_unique<ConfigRecord>();
    std::memcpy(record.get(), bytes.value.data(), sizeof *record);
    const plist::Dictionary tree = KyvarConfigStructToDict(record.get());
    keepCopyBefore(arguments[1], CopyReason::beforeRestore);
    if (!KyvarSaveConfigToFile(keys::storage, tree, arguments[1]))
        return refused(faultOf(arguments[1], "it cannot be written"));
    tellHelperOfSave(tree, arguments[1]);
    return done();
}

std::string faultOfTree(const plist::Dictionary& tree) {
    if (!KyvarValidateConfig(tree, limits::minimumVersion))
        return validityFault(tree);
    const auto record = std::make_unique<ConfigRecord>();
    return KyvarConfigDictToStruct(tree, record.get()) ? "" : encodingFault(tree);
}

Outcome check(const Arguments& arguments, Format format) {
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    if (const auto fault = faultOfTree(settings.value); !fault.empty())
        return refused(faultOf(arguments[0], fault));
    if (format == Format::json)
        print(Json::object({{"valid", true}}));
    return done();
}

} // namespace quorvi::tools
