// A save that has failed: it is told until one succeeds, and tried again whenever there is an occasion.

#include <cerrno>
#include <system_error>

#include "pane/KyvarQuorviPane.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"

namespace quorvi {

bool KyvarQuorviPane::saveUnsavedEdits() {
    if (!fDocument.tree() || !fUnsavedEdits)
        return true;
    if (fDocument.profileIndex() < 0) // the panel was hidden, and could not save then
        fDocument.editProfileIndex(fDocument.profileIndexOfSettings());
    return saveSettings(fDocument.tree());
}

void KyvarQuorviPane::retryFailedSave() {
    if (fSaveHasFailed)
        static_cast<void>(saveUnsavedEdits());
}

/// Why, in the user's language; the system's own words for what is rare.
QString KyvarQuorviPane::textOfError(int error) const {
    switch (error) {
    case ENOSPC:
        return locString(QStringLiteral("No space left on the disk"));
    case EDQUOT:
        return locString(QStringLiteral("Your share of the disk is used up"));
    case EROFS:
        return locString(QStringLiteral("The disk is read-only"));
    case EACCES:
        return locString(QStringLiteral("Permission denied"));
    case EPERM:
        return locString(QStringLiteral("Operation not permitted"));
    case EISDIR:
        return locString(QStringLiteral("A folder is in its place"));
    case ELOOP:
        return locString(QStringLiteral("Its links lead in a circle"));
    case ENXIO:
        return locString(QStringLiteral("It is not an ordinary file"));
    case EIO:
        return locString(QStringLiteral("The disk reports an error"));
    default:
        return QString::fromStdString(std::generic_category().message(error));
    }
}

void KyvarQuorviPane::tellOfFailedSave(int error) {
    QString text = locString(QStringLiteral(
        "Your changes could not be saved in ^1: ^2. They stay in this panel, which tries again "
        "with your next change."));
    const QString name = nameWithin(text, pathFromHome(fSettingsFile.path()));
    text.replace(QStringLiteral("^2"), textOfError(error));
    text.replace(QStringLiteral("^1"), name);
    fNotices.tell(Notice::saveFailed, text, NoticeSign::warning);
}

} // namespace quorvi
