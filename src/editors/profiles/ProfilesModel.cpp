#include "editors/profiles/ProfilesModel.h"

#include <utility>

#include "applications/ApplicationIcon.h"
#include "model/Keys.h"
#include "model/NamingRule.h"
#include "model/SettingsDocument.h"
#include "resources/TableTags.h"
#include "widgets/MarkedCells.h"
#include "widgets/SymbolIcon.h"
#include "window/ActionNames.h"

namespace quorvi {

namespace {

QString textIn(const plist::Dictionary& dictionary, std::string_view key) {
    return QString::fromStdU16String(dictionary.string(key));
}

} // namespace

ProfilesModel::ProfilesModel(Document& document, const PanelText& text, std::function<void()> hasChanged)
    : TableModel(profileColumns, text), m_document(document), m_hasChanged(std::move(hasChanged)) {}

int ProfilesModel::numberOfRows() const {
    return m_document.hasDevice() ? static_cast<int>(m_document.profiles().size()) : 0;
}

QVariant ProfilesModel::cellValue(int columnIdentifier, int row) const {
    const plist::Dictionary profile = m_document.profiles().dictionary(static_cast<std::size_t>(row));
    switch (columnIdentifier) {
    case kProfileNumberColumn:
        return QString::number(row + 1);
    case kProfileNameColumn:
        return textIn(profile, keys::name);
    case kProfileApplicationColumn:
        return textIn(profile.dictionary(keys::driver), keys::application);
    case kProfileAutoswitchColumn:
        return profile.dictionary(keys::driver).boolean(keys::autoSwitch);
    default:
        return QString();
    }
}

void ProfilesModel::setCellValue(const QVariant& value, int columnIdentifier, int row) {
    if (columnIdentifier == kProfileNameColumn) {
        rename(value, row);
        m_document.commit({.saving = Saving::withNextAction,
            .action = actionName(text("Rename Profile “^1”"), nameOf(row))});
    } else if (columnIdentifier == kProfileAutoswitchColumn) {
        editProfileOf(row);
        m_document.driverData().set(keys::autoSwitch, value.toBool());
        const QString action = value.toBool() ? text("Switch to Profile “^1” Automatically")
                                              : text("Do Not Switch to Profile “^1” Automatically");
        m_document.commit({.shown = Shown::nothing,
            .saving = Saving::withNextAction,
            .action = actionName(action, nameOf(row))});
    }
}

std::u16string ProfilesModel::nameOf(int row) const {
    return m_document.profiles().dictionary(static_cast<std::size_t>(row)).string(keys::name);
}

void ProfilesModel::rename(const QVariant& value, int row) {
    // The first profile is the one that always exists; it keeps its name.
    if (row > 0 && value.userType() == QMetaType::QString) {
        const std::u16string name = makeNameUnique(value.toString().toStdU16String(),
            text("Untitled Profile").toStdU16String(), m_document.profiles(), keys::name, row);
        editProfileOf(row);
        m_document.profile().set(keys::name, name);
    }
    cleanUpSettings(m_document.tree());
    m_hasChanged();
}

void ProfilesModel::editProfileOf(int row) {
    if (row != m_document.profileIndex())
        m_document.editProfileIndex(row);
}

CellKind ProfilesModel::cellKind(int columnIdentifier, int row) const {
    if (columnIdentifier == kProfileAutoswitchColumn)
        return CellKind::checkBox;
    return columnIdentifier == kProfileNameColumn && row > 0 ? CellKind::name : CellKind::text;
}

// The text read for a cell without one; any other cell's text is read unchanged.
QString ProfilesModel::spokenText(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileAutoswitchColumn)
        return value.toBool() ? text("Switches automatically") : text("Does not switch automatically");
    return {};
}

QString ProfilesModel::shownCell(int columnIdentifier, int row) const {
    const QString shown = TableModel::shownCell(columnIdentifier, row);
    return columnIdentifier == kProfileApplicationColumn && shown.isEmpty() ? text("Every application")
                                                                            : shown;
}

QVariant ProfilesModel::ownData(int columnIdentifier, int row, int role) const {
    if (row >= numberOfRows())
        return {};
    switch (columnIdentifier) {
    case kProfileNameColumn:
        return nameData(row, role);
    case kProfileApplicationColumn:
        return applicationData(row, role);
    default:
        return {};
    }
}

QVariant ProfilesModel::nameData(int row, int role) const {
    const bool runs = isMarked(kProfileNameColumn, row);
    if (role == MarkedCells::markRole)
        return false; // it runs, which is no fault
    if (runs && role == MarkedCells::symbolRole)
        return static_cast<int>(Symbol::Play);
    if (!runs || role != Qt::FontRole)
        return {};
    QFont font; // of which only the weight is set, and counts
    font.setBold(true);
    return font;
}

QVariant ProfilesModel::applicationData(int row, int role) const {
    if (role != MarkedCells::mutedRole && role != Qt::DecorationRole)
        return {};
    const plist::Dictionary driver =
        m_document.profiles().dictionary(static_cast<std::size_t>(row)).dictionary(keys::driver);
    const bool isBound = !driver.string(keys::application).empty();
    if (role == MarkedCells::mutedRole)
        return !isBound;
    if (!isBound)
        return {};
    const QString identifier = textIn(driver, keys::identifier);
    const auto known = m_icons.find(identifier);
    return known != m_icons.end() ? known->second : m_icons[identifier] = iconOfStoredApplication(identifier);
}

// Hints for empty cells. Plain text, because an application's name may contain markup.
QString ProfilesModel::explanation(int columnIdentifier, const QVariant& value) const {
    if (columnIdentifier == kProfileApplicationColumn && value.toString().isEmpty())
        return text("Every application: double-click to choose one, or use the button below the list.");
    return {};
}

} // namespace quorvi
