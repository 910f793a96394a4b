// The interface between a settings application and a preference pane.
//
// A pane is a bundle folder (NAME.prefPane) whose Contents/Linux holds a Qt plug-in. The plug-in's root
// object implements PreferencePaneFactory. The host calls mainViewDidLoad() once, after it has put the view
// into a window, then didSelect() and willUnselect() alternately, any number of times; the last call before
// it destroys a shown pane is willUnselect().
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>

namespace quorvi {

class PreferencePane {
  public:
    virtual ~PreferencePane() = default;

    /// The pane's view, owned by the pane until the host sets a parent.
    [[nodiscard]] virtual QWidget* mainView() = 0;
    /// One-time set-up, after the view is in its window.
    virtual void mainViewDidLoad() = 0;
    /// The pane has been shown.
    virtual void didSelect() = 0;
    /// The pane is about to be hidden.
    virtual void willUnselect() = 0;
};

/// An optional second interface for panes that are QObjects; the host queries it with qobject_cast. It is
/// separate because external hosts and panes use the first one unchanged.
class FileOpeningPane {
  public:
    virtual ~FileOpeningPane() = default;

    /// Whether the pane can open files with that name.
    [[nodiscard]] virtual bool opens(const QString& path) const = 0;
    /// Opens the file at the path for the user; the pane asks questions and shows errors itself, as soon as
    /// it can. Call this while the pane is shown.
    virtual void openFile(const QString& path) = 0;
};

class PreferencePaneFactory {
  public:
    virtual ~PreferencePaneFactory() = default;

    /// Creates the pane of the bundle folder at the path; null if the bundle cannot be used.
    [[nodiscard]] virtual std::unique_ptr<PreferencePane> createPane(const QString& bundlePath) = 0;
};

} // namespace quorvi

Q_DECLARE_INTERFACE(quorvi::PreferencePaneFactory, "com.kyvar.PreferencePaneFactory/1")
Q_DECLARE_INTERFACE(quorvi::FileOpeningPane, "com.kyvar.FileOpeningPane/1")
