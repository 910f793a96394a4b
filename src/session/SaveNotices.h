// The notices about saves at the bottom of the window.
#pragma once

#include <filesystem>

#include "widgets/FilledText.h"

namespace quorvi {

class Notices;

class SaveNotices {
  public:
    /// The notices must outlive this object. Paths are shown relative to the home folder.
    SaveNotices(Notices& notices, PanelText text, std::filesystem::path homeFolder);

    /// Shows that the file could not be written, with the errno, until savesWork().
    void tellOfFailure(const std::filesystem::path& file, int error);
    void savesWork();
    /// Shows that another program's content is now in the copy.
    void tellOfKeptCopy(const std::filesystem::path& file, const std::filesystem::path& copy);
    /// Shows once, until copiesWork(), that no dated copy could be kept in the folder, with the errno.
    void tellOfFailedCopy(const std::filesystem::path& folder, int error);
    void copiesWork();

  private:
    [[nodiscard]] QString textOfError(int error) const;
    [[nodiscard]] QString pathFromHome(const std::filesystem::path& path) const;
    [[nodiscard]] QString failureAt(QString text, const std::filesystem::path& path, int error) const;

    Notices& m_notices;
    PanelText m_text;
    std::filesystem::path m_homeFolder;
    bool m_copyHasFailed = false;
};

} // namespace quorvi
