#include "pane/ListEditors.h"

#include "pane/KyvarQuorviPane.h"

namespace quorvi {

void KyvarQuorviPane::makeListEditors() {
    const EditorContext context{fDocument, panelText(), fSheets, fNotices};
    fListEditors = std::make_unique<ListEditors>(
        context, ImportExport::Surroundings{
                     .mainView = *fMainView,
                     .homeFolder = fServices.homeFolder,
                     .appendProfile = [this](const plist::Dictionary& profile) { appendProfile(profile); },
                     .appendMacro = [this](const plist::Dictionary& macro) { appendMacro(macro); },
                 });
}

void KyvarQuorviPane::importProfile(const QFileDialog* panel, int returnCode) {
    fListEditors->files.importChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::importMacro(const QFileDialog* panel, int returnCode) {
    fListEditors->files.importChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::exportProfile(const QFileDialog* panel, int returnCode) {
    fListEditors->files.exportChosen(ItemKind::profile, *panel, returnCode);
}

void KyvarQuorviPane::exportMacro(const QFileDialog* panel, int returnCode) {
    fListEditors->files.exportChosen(ItemKind::macro, *panel, returnCode);
}

void KyvarQuorviPane::importProfileCompletion(const QString& path) {
    fListEditors->files.importFile(ItemKind::profile, path);
}

void KyvarQuorviPane::importMacroCompletion(const QString& path) {
    fListEditors->files.importFile(ItemKind::macro, path);
}

} // namespace quorvi
