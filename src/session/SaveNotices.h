// What the user is told of saves, at the window's foot.
#pragma once

#include <filesystem>

#include "widgets/FilledText.h"

namespace quorvi {

class Notices;

class SaveNotices {
  public:
    /// The notices must outlive this object. Paths are told from the home folder.
    SaveNotices(Notices& notices, PanelText text, std::filesystem::path homeFolder);

    /// The file could not be written; the error as errno. Told until savesWork().
    void tellOfFailure(const std::filesystem::path& file, int error);
    void savesWork();
    /// What another program had put into the file is in the copy now.
    void tellOfKeptCopy(const std::filesystem::path& file, const std::filesystem::path& copy);
    /// No dated copy could be kept in the folder; the error as errno. Told once, until copiesWork().
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
