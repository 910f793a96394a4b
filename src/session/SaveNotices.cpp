#include "session/SaveNotices.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "widgets/ShownText.h"
#include "window/Notices.h"

namespace quorvi {

SaveNotices::SaveNotices(Notices& notices, PanelText text, std::filesystem::path homeFolder)
    : m_notices(notices), m_text(std::move(text)), m_homeFolder(std::move(homeFolder)) {}

/// The reason in the user's language; the system's own text for rare errors.
QString SaveNotices::textOfError(int error) const {
    switch (error) {
    case ENOSPC:
        return m_text("No space left on the disk");
    case EDQUOT:
        return m_text("Your disk quota is used up");
    case EROFS:
        return m_text("The disk is read-only");
    case EACCES:
        return m_text("Permission denied");
    case EPERM:
        return m_text("Operation not permitted");
    case EISDIR:
        return m_text("There is a folder in its place");
    case ELOOP:
        return m_text("Its links form a loop");
    case ENXIO:
        return m_text("It is not an ordinary file");
    case EIO:
        return m_text("The disk reports an error");
    default:
        return QString::fromStdString(std::generic_category().message(error));
    }
}

/// The path with "~" for the home folder.
QString SaveNotices::pathFromHome(const std::filesystem::path& path) const {
    const std::string fromHome = path.lexically_relative(m_homeFolder).string();
    const bool isBelow = !fromHome.empty() && !fromHome.starts_with("..");
    return QString::fromStdString(isBelow ? std::string("~/").append(fromHome) : path.string());
}

/// The text with the path for ^1 and the error for ^2.
QString SaveNotices::failureAt(QString text, const std::filesystem::path& path, int error) const {
    const QString name = nameWithin(text, pathFromHome(path));
    text.replace(QStringLiteral("^2"), textOfError(error));
    text.replace(QStringLiteral("^1"), name);
    return text;
}

void SaveNotices::tellOfFailure(const std::filesystem::path& file, int error) {
    const QString text = m_text("Your changes could not be saved in ^1: ^2. This panel keeps them and tries "
                                "again with your next change.");
    m_notices.tell(Notice::saveFailed, failureAt(text, file, error), NoticeSign::warning);
}

void SaveNotices::savesWork() {
    m_notices.withdraw(Notice::saveFailed);
}

void SaveNotices::tellOfKeptCopy(const std::filesystem::path& file, const std::filesystem::path& copy) {
    QString text = m_text(
        "Another program changed the settings too. This panel's settings are in use; the other program's "
        "were saved as ^1. To use those instead, close this panel and rename that file to ^2.");
    text.replace(QStringLiteral("^2"), nameWithin(text, QString::fromStdString(file.filename())));
    text.replace(QStringLiteral("^1"), nameWithin(text, pathFromHome(copy)));
    m_notices.tell(Notice::keptCopy, text, NoticeSign::warning);
}

void SaveNotices::tellOfFailedCopy(const std::filesystem::path& folder, int error) {
    if (std::exchange(m_copyHasFailed, true))
        return;
    const QString text = m_text("No copy of your earlier settings could be kept in ^1: ^2. This does not "
                                "stop your changes from being saved.");
    m_notices.tell(Notice::copyFailed, failureAt(text, folder, error), NoticeSign::warning);
}

void SaveNotices::copiesWork() {
    m_copyHasFailed = false;
    m_notices.withdraw(Notice::copyFailed);
}

} // namespace quorvi
