// A preference pane loaded from its bundle.
#pragma once

#include <QIcon>
#include <QPluginLoader>
#include <QString>

#include <memory>

#include "platform/PreferencePane.h"

namespace quorvi {

/// A pane with its plug-in. The code stays loaded for the life of the process, so the plug-in's process-wide
/// state survives until a host shows the pane again.
class LoadedPane {
  public:
    /// Loads the bundle folder's plug-in for this version of Qt and creates its pane. Returns null and sets
    /// `error` if the folder is not a bundle, has no plug-in, or the plug-in has another interface.
    [[nodiscard]] static std::unique_ptr<LoadedPane> load(const QString& bundlePath, QString& error);

    [[nodiscard]] const QString& name() const { return m_name; }
    /// Loaded at each call: the first icon makes Qt search its picture plug-ins.
    [[nodiscard]] QIcon icon() const { return QIcon(m_iconFile); }
    [[nodiscard]] QWidget* mainView() const { return m_pane->mainView(); }

    /// Notifies the pane that it is shown (the first time also that its view has loaded). Idempotent.
    void select();
    /// Notifies the pane that it will be hidden. Idempotent.
    void unselect();
    [[nodiscard]] bool opens(const QString& path) const;
    /// Passes the file to the pane, which must be selected and able to open such files.
    void openFile(const QString& path);

  private:
    LoadedPane() = default;
    /// Null if the pane does not open files.
    [[nodiscard]] FileOpeningPane* opener() const;

    QString m_name;
    QString m_iconFile;
    std::unique_ptr<PreferencePane> m_pane;
    bool m_loaded = false;
    bool m_selected = false;
};

} // namespace quorvi
