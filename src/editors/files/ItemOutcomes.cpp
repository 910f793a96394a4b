#include "editors/files/ItemOutcomes.h"

#include "widgets/ShownText.h"

namespace quorvi {

namespace {

QString faultText(ItemKind kind, ItemFault fault, const PanelText& text) {
    switch (fault) {
    case ItemFault::tooLarge:
        return text("^1 was not imported: it is too large.");
    case ItemFault::damaged:
        return text("^1 was not imported: it is damaged or of another kind.");
    case ItemFault::otherItem:
        return kind == ItemKind::profile ? text("^1 was not imported: it contains no profile.")
                                         : text("^1 was not imported: it contains no macro.");
    case ItemFault::tooManySteps:
        return text("^1 was not imported: its macro has more than 16 steps.");
    case ItemFault::notReadable:
    case ItemFault::none:
        break;
    }
    return text("^1 was not imported: it cannot be read.");
}

} // namespace

QString exportedText(ItemKind kind, const QString& name, const QString& path, const PanelText& text) {
    const QString exported = kind == ItemKind::profile ? text("The profile “^1” was exported to ^2.")
                                                       : text("The macro “^1” was exported to ^2.");
    return filledText(exported, {nameFor(exported, name), nameWithin(exported, path)});
}

QString notExportedText(
    const QString& name, const QString& path, std::error_code reason, const PanelText& text) {
    if (reason == std::errc::file_exists) {
        const QString exists = text("“^1” was not exported: there is already a file ^2.");
        return filledText(exists, {nameFor(exists, name), nameWithin(exists, path)});
    }
    const QString failed = text("“^1” was not exported to ^2: ^3");
    const QString why = QString::fromLocal8Bit(reason.message().c_str());
    return filledText(failed, {nameFor(failed, name), nameWithin(failed, path), nameWithin(failed, why)});
}

QString importedText(
    ItemKind kind, const QString& name, const std::vector<int>& withoutMacro, const PanelText& text) {
    if (kind == ItemKind::macro || withoutMacro.empty()) {
        const QString imported = kind == ItemKind::profile ? text("The profile “^1” was imported.")
                                                           : text("The macro “^1” was imported.");
        return filledText(imported, {nameFor(imported, name)});
    }
    QStringList inputs;
    for (const int input : withoutMacro)
        inputs << QString::number(input);
    const QString missing = text("The profile “^1” was imported. Buttons whose macro is missing: ^2");
    return filledText(missing, {nameFor(missing, name), joinedText(text("^1, ^2, ^3"), inputs)});
}

QString notImportedText(ItemKind kind, const QString& path, ItemFault fault, const PanelText& text) {
    const QString failed = faultText(kind, fault, text);
    return filledText(failed, {nameWithin(failed, path)});
}

QString notImportedNewerText(const QString& path, const PanelText& text) {
    const QString failed = text("^1 was not imported: it was written by a newer version.");
    return filledText(failed, {nameWithin(failed, path)});
}

QString listFullText(ItemKind kind, const QString& path, const PanelText& text) {
    const QString full = kind == ItemKind::profile
                             ? text("^1 was not imported: there are already 5 profiles, the maximum.")
                             : text("^1 was not imported: there are already 12 macros, the maximum.");
    return filledText(full, {nameWithin(full, path)});
}

} // namespace quorvi
