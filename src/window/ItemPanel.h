// The file panel for imports and exports.
#pragma once

#include <QFileDialog>

namespace quorvi {

/// The path with the extension at its end, even after something similar: "v1.2" gets it too.
[[nodiscard]] QString withExtension(const QString& path, const QString& extension);

/// The proposed name of the item's file, without characters of a path.
[[nodiscard]] QString fileNameFor(QString name, const QString& extension);

/// Always adds the default suffix to a name typed for a new file, even if it ends like another kind of file
/// or a folder has this name. A path to a folder, with a slash, still opens it. The class has no meta-object:
/// Qt uses the desktop's file panel only in place of its plain class.
class ItemPanel : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

    void accept() override;
};

} // namespace quorvi
