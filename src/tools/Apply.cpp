#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "history/Backup.h"
#include "history/Differences.h"
#include "model/ConfigFile.h"
#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"
#include "tools/BackupTexts.h"
#include "tools/DifferenceLines.h"
#include "tools/EarlierSettings.h"
#include "tools/HelperNews.h"
#include "tools/Input.h"
#include "tools/Json.h"
#include "tools/Records.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

namespace fs = std::filesystem;
using plist::Dictionary;

struct ApplyRequest {
    std::vector<std::string> files;
    bool isCheck = false;
    std::string fault;
};

ApplyRequest requestOf(const Arguments& arguments) {
    ApplyRequest request;
    for (const std::string& argument : arguments)
        if (argument == "--check")
            request.isCheck = true;
        else if (argument.starts_with("--"))
            request.fault = "apply has no option " + argument;
        else
            request.files.push_back(argument);
    if (request.fault.empty() && (request.files.empty() || request.files.size() > 2))
        request.fault = "apply takes FILE [SETTINGS.plist] [--check]";
    return request;
}

/// Reads a backup or a settings file. The extension decides which, so that a damaged backup is not read as
/// settings.
Input<Backup> readWanted(const fs::path& path) {
    ReadBackup read = readBackup(path);
    if (!read && (path.extension() == kBackupExtension || read.fault == BackupFault::newerFormat))
        return {{}, faultOf(path, text(read.fault))};
    if (read && read.backup.contents != BackupContents::everything)
        return {{}, faultOf(path, "it holds a single profile, which import adds")};
    if (read)
        return {std::move(read.backup), ""};
    const auto settings = readSettings(path);
    return {backupOf(settings.value), settings.fault};
}

/// Applies settings to a file.
class Taking {
  public:
    Taking(Backup wanted, fs::path file, bool isCheck)
        : m_wanted(std::move(wanted)), m_file(std::move(file)), m_isCheck(isCheck) {}

    /// Returns 0, or an errno if the file could not be replaced.
    [[nodiscard]] int run() {
        bool isNew = true;
        int error = changeConfigFile(keys::storage, m_file, [&](const Dictionary& tree) {
            isNew = !tree;
            return tree && bringToWanted(tree);
        });
        if (isNew)
            error = writeNew();
        if (error == 0)
            tellHelperOfSave(m_now, m_file);
        if (error == ECANCELED)
            return m_isToWrite ? EINVAL : 0; // a property list cannot hold it, or there is nothing to do
        return error;
    }

    [[nodiscard]] const std::vector<Phrase>& differences() const { return m_differences; }
    [[nodiscard]] const std::vector<LeftOut>& leftOut() const { return m_leftOut; }

  private:
    /// Returns whether the tree must be written.
    bool bringToWanted(const Dictionary& tree) {
        const auto before = plist::mutableDeepCopy(tree);
        m_leftOut = restoreEverything(tree, m_wanted);
        m_now = tree;
        m_differences = differencesBetween(before, tree);
        m_isToWrite = !m_differences.empty() && !m_isCheck;
        if (m_isToWrite && !std::exchange(m_hasCopy, true))
            keepCopyBefore(m_file, CopyReason::beforeRestore);
        return m_isToWrite;
    }

    /// Writes to a file that is missing or holds no settings. Keeps a copy of one that is not a property
    /// list.
    int writeNew() {
        const auto tree = Dictionary::create();
        if (!bringToWanted(tree))
            return ECANCELED;
        ConfigFile file(keys::storage, m_file);
        return saveSettings(tree, file) ? 0 : file.error();
    }

    Backup m_wanted;
    fs::path m_file;
    bool m_isCheck;
    bool m_isToWrite = false;
    bool m_hasCopy = false;
    Dictionary m_now;
    std::vector<Phrase> m_differences;
    std::vector<LeftOut> m_leftOut;
};

Json jsonOf(const std::vector<std::string>& texts) {
    return Json::array({texts.begin(), texts.end()});
}

std::vector<std::string> textsOf(const std::vector<LeftOut>& leftOut) {
    std::vector<std::string> texts;
    texts.reserve(leftOut.size());
    for (const LeftOut& one : leftOut)
        texts.push_back(text(one));
    return texts;
}

void say(const Taking& taking, bool isCheck, Format format) {
    const bool differs = !taking.differences().empty();
    const auto lines = linesOf(taking.differences());
    if (format == Format::json)
        return print(Json::object({{"changed", differs}, {"check", isCheck}, {"differences", jsonOf(lines)},
            {"leftOut", jsonOf(textsOf(taking.leftOut()))}}));
    std::puts(!differs ? "unchanged" : isCheck ? "would change" : "changed");
    if (isCheck)
        for (const std::string& line : lines)
            std::printf("\t%s\n", line.c_str());
}

/// Why the panel or the mouse would reject the resulting settings.
std::string faultOfWanted(const Backup& wanted) {
    if (auto fault = faultOfTree(wanted.tree); !fault.empty())
        return fault;
    const auto tree = Dictionary::create();
    (void)restoreEverything(tree, wanted);
    return faultOfTree(tree);
}

} // namespace

Outcome apply(const Arguments& arguments, Format format) {
    const ApplyRequest request = requestOf(arguments);
    if (!request.fault.empty())
        return misused(request.fault);
    const std::string& source = request.files.front();
    const fs::path file =
        request.files.size() > 1 ? fs::path(request.files.back()) : userSettingsPath(homeFolder());
    if (file.empty())
        return refused("there is no home folder");
    auto wanted = readWanted(source);
    if (!wanted.isGood())
        return refused(wanted.fault);
    if (const auto fault = faultOfWanted(wanted.value); !fault.empty())
        return refused(faultOf(source, fault));
    if (request.isCheck || format == Format::json)
        nameKeysOfEnvironment();
    Taking taking(std::move(wanted.value), file, request.isCheck);
    if (const int error = taking.run())
        return refused(faultOf(file, std::string("it cannot be written: ") + std::strerror(error)));
    say(taking, request.isCheck, format);
    tellLeftOut(source, taking.leftOut());
    return done();
}

} // namespace quorvi::tools
