#include "tools/BackupTexts.h"

#include <cstdio>

#include "base/Unicode.h"
#include "model/Limits.h"
#include "tools/Input.h"

namespace quorvi::tools {

namespace {

/// "profile 2 (Game)"
std::string item(const char* kind, const LeftOut& leftOut) {
    std::string result = std::string(kind).append(" ").append(std::to_string(leftOut.number));
    const std::string name = oneLine(toUtf8(leftOut.name));
    return name.empty() ? result : result.append(" (").append(name).append(")");
}

std::string cleared(const LeftOut& leftOut, const char* target) {
    return "what button " + std::to_string(leftOut.input) + " of " + item("profile", leftOut) + " did: the " +
           target + " is not there";
}

} // namespace

std::string text(BackupFault fault) {
    switch (fault) {
    case BackupFault::noSuchFile:
        return "there is no such file";
    case BackupFault::notReadable:
        return "it cannot be read";
    case BackupFault::tooLarge:
        return "it is too large; a backup has at most " + std::to_string(kBackupBytes) + " bytes and " +
               std::to_string(kBackupValues) + " values";
    case BackupFault::damaged:
        return "it is not a property list";
    case BackupFault::newerFormat:
        return "a newer version of this program has written it";
    case BackupFault::noSettings:
        return "it is not a backup of settings";
    case BackupFault::none:
        break;
    }
    return "";
}

std::string text(const LeftOut& leftOut) {
    using What = LeftOut::What;
    switch (leftOut.what) {
    case What::damagedProfile:
        return item("profile", leftOut) + ": it is damaged";
    case What::profileBeyond:
        return item("profile", leftOut) + ": there is room for " + std::to_string(limits::profiles);
    case What::damagedMacro:
        return item("macro", leftOut) + ": it is damaged";
    case What::macroOfManySteps:
        return item("macro", leftOut) + ": it has more than " + std::to_string(limits::macroSteps) + " steps";
    case What::macroBeyond:
        return item("macro", leftOut) + ": there is room for " + std::to_string(limits::macros);
    case What::inputsMacro:
        return cleared(leftOut, "macro");
    case What::inputsProfile:
        return cleared(leftOut, "profile");
    }
    return "";
}

std::string text(CopyReason reason) {
    switch (reason) {
    case CopyReason::firstChangeOfDay:
        return "first change of the day";
    case CopyReason::beforeDeletion:
        return "deletion of a profile";
    case CopyReason::beforeRestore:
        return "restoring";
    }
    return "";
}

void tellLeftOut(const std::filesystem::path& file, const std::vector<LeftOut>& leftOut) {
    for (const LeftOut& one : leftOut)
        std::fprintf(stderr, "quorvictl: %s\n", faultOf(file, "left out: " + text(one)).c_str());
}

} // namespace quorvi::tools
