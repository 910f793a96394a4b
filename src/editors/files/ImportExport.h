// Imports and exports single profiles and macros, and profiles with their macros: opens the file panels, and
// shows the result at the bottom of the window.
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
    /// Appends an item to its list and saves, with that action name.
    using AppendItem = std::function<void(const plist::Dictionary& item, const std::u16string& action)>;

    struct Surroundings {
        QWidget& mainView;                ///< the parent window of the panels
        std::filesystem::path homeFolder; ///< shown paths are relative to it
        AppendItem appendProfile;
        AppendItem appendMacro;
        std::function<void()> showLists; ///< shows all lists after the tree has changed
    };

    ImportExport(const EditorContext& context, Surroundings surroundings);

    /// Lets the user choose an item's file. Does nothing for profiles if there are five.
    void showImportPanel(ItemKind kind);
    /// Lets the user choose the file for the current item, and whether to include a profile's macros. Does
    /// nothing for macros without a current one.
    void showExportPanel(ItemKind kind);

    /// Handles the end of such a panel, with QDialog::Accepted or not. An import waits until its panel has
    /// closed.
    void importChosen(ItemKind kind, const QFileDialog& panel, int returnCode);
    void exportChosen(ItemKind kind, const QFileDialog& panel, int returnCode);

    /// Appends the item in the file, with a profile's included macros. Does nothing without settings; shows a
    /// message if the file is invalid or there is no room.
    void importFile(ItemKind kind, const QString& path);

  private:
    [[nodiscard]] QString proposedName(ItemKind kind) const;
    void exportItem(ItemKind kind, const QString& chosen, bool withMacros);
    void importProfileWithMacros(const QString& path);
    /// Returns false, and tells the user, if the file is invalid or there is no room.
    [[nodiscard]] bool mayImport(ItemKind kind, ItemFault fault, const QString& path);
    void tellOfImport(ItemKind kind, const plist::Dictionary& item);

    EditorContext m_context;
    Surroundings m_surroundings;
};

} // namespace quorvi
