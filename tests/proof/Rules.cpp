#include "proof/Rules.h"

#include <QSet>

#include "model/CommandCodes.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi::test {

namespace {

QString text(const std::u16string& text) {
    return QString::fromStdU16String(text);
}

void checkCount(QStringList& broken, const char* what, std::size_t count, int least, int most) {
    if (count < std::size_t(least) || count > std::size_t(most))
        broken << QStringLiteral("%1 %2, %3 to %4 are allowed").arg(count).arg(what).arg(least).arg(most);
}

void checkNames(QStringList& broken, const char* what, const plist::Array& items) {
    QSet<QString> names;
    for (const plist::Value& item : items.items()) {
        const std::u16string name = item.dictionary().string(keys::name);
        if (name.size() > limits::nameUnits)
            broken << QStringLiteral("%1 %2: too long a name").arg(QLatin1String(what), text(name));
        if (names.contains(text(name)))
            broken << QStringLiteral("%1 %2: twice").arg(QLatin1String(what), text(name));
        names.insert(text(name));
    }
}

void checkRecord(QStringList& broken, const plist::Dictionary& tree) {
    constexpr std::size_t recordBytes = 13232;
    ConfigRecord record{};
    static_assert(sizeof(record) == recordBytes);
    if (!KyvarConfigDictToStruct(tree, &record))
        broken << QStringLiteral("the tree does not become a record");
    else if (!KyvarConfigStructToDict(&record))
        broken << QStringLiteral("the record does not become a tree");
}

} // namespace

QStringList danglingAssignments(const plist::Dictionary& tree) {
    QStringList dangling;
    const plist::Array profiles = tree.array(keys::profiles);
    for (std::size_t index = 0; index < profiles.size(); ++index) {
        const auto buttons = profiles.dictionary(index).dictionary(keys::buttons);
        for (const plist::Entry& entry : buttons.entries()) {
            const auto assignment = entry.value.dictionary();
            const std::int32_t command = assignment.integer(keys::command);
            const std::int32_t target = assignment.integer(keys::param1);
            const bool lost =
                (command == commands::runMacro &&
                    KyvarFindMacroInArray(target, nullptr, tree.array(keys::macros)) < 0) ||
                (command == commands::switchToProfile && (target < 1 || target > int(profiles.size())));
            if (lost)
                dangling << QStringLiteral("profile %1, input %2: command %3 of %4 that is not there")
                                .arg(index + 1)
                                .arg(QString::fromStdString(entry.key))
                                .arg(command)
                                .arg(target);
        }
    }
    return dangling;
}

bool hasPrimaryClick(const plist::Dictionary& profile) {
    constexpr std::uint32_t inputsOneToSeven = 0x7F;
    const plist::Dictionary first = profile.dictionary(keys::buttons).dictionary(keys::button(1));
    return !first || first.integer(keys::command) == commands::click ||
           KyvarFindClickInProfile(profile, inputsOneToSeven) >= 0;
}

plist::Value asWritten(const plist::Value& value) {
    const auto xml = plist::writeXml(value);
    return xml ? plist::readPropertyList({reinterpret_cast<const std::uint8_t*>(xml->data()), xml->size()})
               : plist::Value();
}

QStringList brokenRules(const plist::Dictionary& tree) {
    QStringList broken;
    const plist::Array profiles = tree.array(keys::profiles);
    const plist::Array macros = tree.array(keys::macros);
    checkCount(broken, "profiles", profiles.size(), 1, limits::profiles);
    checkCount(broken, "macros", macros.size(), 0, limits::macros);
    for (const plist::Value& profile : profiles.items())
        checkCount(broken, "stages", profile.dictionary().array(keys::stages).size(), limits::minimumStages,
            limits::stages);
    for (const plist::Value& macro : macros.items())
        checkCount(broken, "steps", macro.dictionary().array(keys::steps).size(), 0, limits::macroSteps);
    checkNames(broken, "profile", profiles);
    checkNames(broken, "macro", macros);
    const std::int32_t current = tree.dictionary(keys::settings).integer(keys::profileId);
    if (current < 1 || std::size_t(current) > profiles.size())
        broken << QStringLiteral("profile %1 is the current one, of %2").arg(current).arg(profiles.size());
    checkRecord(broken, tree);
    return broken;
}

} // namespace quorvi::test
