// Writes, shows and restores backup files and copies of earlier settings.
#pragma once

#include <QObject>
#include <QString>

#include <filesystem>
#include <functional>

#include "history/History.h"
#include "window/EditorContext.h"

class QDialog;
class QFileDialog;
class QWidget;

namespace quorvi {

/// A restore is one user action; a dated copy of the present settings is kept before it. The bottom of the
/// window shows the result.
class BackupsEditor final : public QObject {
  public:
    struct Others {
        QWidget& mainView;                ///< the parent window of the panels
        std::filesystem::path homeFolder; ///< shown paths are relative to it
        const History& history;           ///< the copies
        std::function<void()> keepCopy;   ///< keeps a copy of the present settings
        std::function<void()> showLists;  ///< shows the lists after the whole tree has changed
        /// Append the item in the file, and show the result.
        std::function<void(const QString& path)> importProfile;
        std::function<void(const QString& path)> importMacro;
    };

    BackupsEditor(const EditorContext& context, Others others);

    /// Lets the user choose a file and writes all settings to it. Does nothing without settings.
    void showBackUpPanel();
    /// Lets the user choose a backup to restore. Does nothing without settings.
    void showRestorePanel();
    /// Lets the user browse the copies of earlier settings, and restores the chosen one. Returns when the
    /// sheet is closed; the editor may be destroyed before.
    void showEarlier();

    /// Whether the panel accepts files with that name.
    [[nodiscard]] static bool takes(const QString& path);
    /// Asks whether to use the settings, the profile or the macro in the file, and does so. Shows a message
    /// for an unsupported or invalid file. Returns when the user has answered; the editor may be destroyed
    /// before.
    void openFile(const QString& path);

  private:
    void backUpTo(const QString& chosen);
    void openBackup(const QString& path);
    [[nodiscard]] bool agreesToImport(const char* question, const QString& path);
    [[nodiscard]] bool agreesToRestore(const Backup& backup, const QString& path);
    /// Replaces the present settings with the backup's, and shows the sentence.
    void take(const Backup& backup, const QString& action, const QString& sentence);
    [[nodiscard]] int runSheet(QDialog* sheet);
    void whenChosen(QFileDialog* panel, std::function<void(const QString& path)> use);
    void tell(const QString& text, bool isGood);
    [[nodiscard]] QString shown(const QString& path) const;
    [[nodiscard]] QString withPath(const char* pattern, const QString& path) const;

    EditorContext m_context;
    Others m_others;
};

} // namespace quorvi
