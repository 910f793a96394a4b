// A preference pane taken from its bundle.
#pragma once

#include <QIcon>
#include <QPluginLoader>
#include <QString>

#include <memory>

#include "platform/PreferencePane.h"

namespace quorvi {

/// A pane with the plug-in that it comes from. The code stays loaded for the life of the process: a host that
/// shows the pane again finds the plug-in's process-wide state as it left it.
class LoadedPane {
  public:
    /// Loads the bundle folder's plug-in for this version of Qt and makes its pane. Nothing, and the reason
    /// in the error, when the folder is no bundle, holds no plug-in or the plug-in is of another interface.
    [[nodiscard]] static std::unique_ptr<LoadedPane> load(const QString& bundlePath, QString& error);

    [[nodiscard]] const QString& name() const { return m_name; }
    /// Read anew each time: asking for the first icon lets Qt look through its plug-ins for pictures.
    [[nodiscard]] QIcon icon() const { return QIcon(m_iconFile); }
    [[nodiscard]] QWidget* mainView() const { return m_pane->mainView(); }

    /// Tells the pane that it is shown (the first time also that its view has loaded). Idempotent.
    void select();
    /// Tells the pane that it is about to be hidden. Idempotent.
    void unselect();
    [[nodiscard]] bool opens(const QString& path) const;
    /// Hands the file to the pane, which has to be selected and to open such files.
    void openFile(const QString& path);

  private:
    LoadedPane() = default;
    /// Null when the pane opens no files.
    [[nodiscard]] FileOpeningPane* opener() const;

    QString m_name;
    QString m_iconFile;
    std::unique_ptr<PreferencePane> m_pane;
    bool m_loaded = false;
    bool m_selected = false;
};

} // namespace quorvi
