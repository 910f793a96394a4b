// The panel in which the file of an import or export is chosen.
#pragma once

#include <QFileDialog>

namespace quorvi {

/// The path with the extension at its end, whatever else looks like one in it: "v1.2" gets it as well.
[[nodiscard]] QString withExtension(const QString& path, const QString& extension);

/// The name that is proposed for the item's file: one that can be typed and is no path.
[[nodiscard]] QString fileNameFor(QString name, const QString& extension);

/// Takes a name that is typed for a new file for that of a file with the default suffix, also where it ends
/// like another kind of file and where a folder has it. A path to a folder, with a slash in it, still leads
/// there. It has no meta-object of its own: Qt shows the desktop's file panel in the place of its plain one
/// alone.
class ItemPanel : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

    void accept() override;
};

} // namespace quorvi
