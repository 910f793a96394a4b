// Single profiles and macros as files of their own, and profiles in one with their macros: the panels that
// choose one, and what comes of the choice, which is told at the window's foot.
#pragma once

#include <QFileDialog>

#include <filesystem>
#include <functional>

#include "editors/files/ItemOutcomes.h"
#include "plist/Value.h"
#include "window/EditorContext.h"

namespace quorvi {

class ImportExport final : public QObject {
  public:
    /// Puts an item behind the others of its list and saves, under that name of the action.
    using AppendItem = std::function<void(const plist::Dictionary& item, const std::u16string& action)>;

    struct Surroundings {
        QWidget& mainView;                ///< the panels hang on its window
        std::filesystem::path homeFolder; ///< paths are shown from there
        AppendItem appendProfile;
        AppendItem appendMacro;
        std::function<void()> showLists; ///< shows all lists of a tree that has changed
    };

    ImportExport(const EditorContext& context, Surroundings surroundings);

    /// Lets the user choose the file of an item. Does nothing when there are five profiles.
    void showImportPanel(ItemKind kind);
    /// Lets the user choose where the current item goes, and a profile's macros with it. Does nothing without
    /// a current macro.
    void showExportPanel(ItemKind kind);

    /// The end of such a panel, with QDialog::Accepted or not. An import waits until its panel has gone.
    void importChosen(ItemKind kind, const QFileDialog& panel, int returnCode);
    void exportChosen(ItemKind kind, const QFileDialog& panel, int returnCode);

    /// Appends the item in the file, with a profile the macros that are in there too. Does nothing without
    /// settings; a file that is no good, and one for which there is no room, is told of.
    void importFile(ItemKind kind, const QString& path);

  private:
    [[nodiscard]] QString proposedName(ItemKind kind) const;
    void exportItem(ItemKind kind, const QString& chosen, bool withMacros);
    void importProfileWithMacros(const QString& path);
    /// False when the file is no good or there is no room, which the user is told.
    [[nodiscard]] bool mayImport(ItemKind kind, ItemFault fault, const QString& path);
    void tellOfImport(ItemKind kind, const plist::Dictionary& item);

    EditorContext m_context;
    Surroundings m_surroundings;
};

} // namespace quorvi
