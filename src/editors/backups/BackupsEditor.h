// All settings as one file, and the copies that are kept of earlier ones: written, looked at and taken back.
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

/// What is taken back is one action of the user's, before which a dated copy of the present settings is kept.
/// What came of it is told at the window's foot.
class BackupsEditor final : public QObject {
  public:
    struct Others {
        QWidget& mainView;                ///< the panels hang on its window
        std::filesystem::path homeFolder; ///< paths are shown from there
        const History& history;           ///< where the copies are
        std::function<void()> keepCopy;   ///< keeps a copy of the settings as they are now
        std::function<void()> showLists;  ///< shows the lists of a tree that has changed as a whole
        /// Append the item in the file, and tell of it.
        std::function<void(const QString& path)> importProfile;
        std::function<void(const QString& path)> importMacro;
    };

    BackupsEditor(const EditorContext& context, Others others);

    /// Lets the user choose the file that all settings are written to. Does nothing without settings.
    void showBackUpPanel();
    /// Lets the user choose the backup that is to be restored. Does nothing without settings.
    void showRestorePanel();
    /// Lets the user look through the copies of earlier settings, and takes the chosen one. Returns when the
    /// sheet is closed, which the editor itself may not outlive.
    void showEarlier();

    /// Whether the panel takes files of that name.
    [[nodiscard]] static bool takes(const QString& path);
    /// Asks whether the settings, the profile or the macro in the file are to be taken, and takes them. What
    /// the panel does not take, and a file that is no good, is told of. Returns when the user has answered,
    /// which the editor itself may not outlive.
    void openFile(const QString& path);

  private:
    void backUpTo(const QString& chosen);
    void openBackup(const QString& path);
    [[nodiscard]] bool agreesToImport(const char* question, const QString& path);
    [[nodiscard]] bool agreesToRestore(const Backup& backup, const QString& path);
    /// Puts the settings of the backup in place of the present ones, and tells the sentence.
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
