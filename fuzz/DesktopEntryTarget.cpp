// Desktop entries: those of applications and those of the autostart folder.
#include <QString>

#include "Require.h"
#include "applications/ApplicationInformation.h"
#include "applications/DesktopEntryKeys.h"
#include "applications/ExecKey.h"
#include "loginitems/DesktopEntry.h"

using namespace quorvi;

namespace {

using fuzz::require;

void requireEscapes(const std::string& value) {
    require(unescapedValue(escapedValue(value)) == value, "escaping loses nothing");
    const std::string text = std::string(kDesktopEntryGroup) + "\nAny=" + escapedValue(value) + "\n";
    require(DesktopEntryKeys(text).value("Any") == value, "an escaped value is read from its line");
    require(unescapedValue(value).size() <= value.size(), "an escape only shortens");
}

void requireExec(const std::string& exec) {
    const auto words = execWords(exec);
    const auto program = execProgramName(exec);
    require(words || program.empty(), "a quote that is not closed starts nothing");
    require(program.find('/') == std::string::npos || program == "/", "a program's name has no folders");
    if (!words)
        return;
    for (const auto& word : *words)
        require(word.size() <= exec.size(), "unquoting only shortens");
}

/// Requires that the generated line starts the program with this path.
void requireExecLine(const std::string& path) {
    const auto words = execWords(execLine(path));
    require(words && !words->empty() && words->back() == path, "a path is the last word of its line");
}

void requireAutostart(std::string_view text, const std::string& executable) {
    const auto entry = parseDesktopEntry(text);
    if (!entry)
        return;
    require(!entry->applicationPath.empty() && !displayName(entry->applicationPath).empty(),
        "a log-in item has a name");
    const auto written = desktopEntryText(*entry, executable);
    if (!written)
        return;
    const auto again = parseDesktopEntry(*written);
    require(again && again->applicationPath == entry->applicationPath && again->hide == entry->hide &&
                again->disabled == entry->disabled,
        "a log-in item is read as it was written");
    const auto exec = DesktopEntryKeys(*written).value("Exec");
    require(exec && execWords(*exec) && execWords(*exec)->back() == executable,
        "a written log-in item starts its program");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const DesktopEntryKeys entry(text);
    const std::string exec = entry.value("Exec").value_or(text);
    const std::string name = entry.localizedValue("Name", {"sr_RS@latin", "de"}).value_or(text);
    require(entry.value("Name") || !entry.localizedValue("Name", {}), "no locale asks for the plain key");
    requireEscapes(name);
    requireExec(exec);
    requireExecLine(exec);
    requireAutostart(text, exec);
    for (const auto* key : {"OnlyShowIn", "NotShowIn", "Categories"})
        require(entry.list(key).size() <= size, "a list has no more elements than its text characters");
    require(!(entry.boolean("NoDisplay") && entry.value("NoDisplay") != "true"), "only true is true");
    if (const auto application = applicationInformation(entry, QStringLiteral("any")))
        require(!application->name.empty() && !application->executable.empty(), "an application has a name");
    return 0;
}
