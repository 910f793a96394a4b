// What a settings application and a preference pane know of each other.
//
// A pane is a bundle folder (NAME.prefPane) whose Contents/Linux holds a Qt plug-in. The plug-in's root
// object implements PreferencePaneFactory. The host calls mainViewDidLoad() once, after it has put the view
// into a window, then didSelect() and willUnselect() in strict turn, any number of times; the last call
// before it destroys a shown pane is willUnselect().
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>

#include <memory>

namespace quorvi {

class PreferencePane {
  public:
    virtual ~PreferencePane() = default;

    /// The pane's view. Owned by the pane until the host gives it a parent.
    [[nodiscard]] virtual QWidget* mainView() = 0;
    /// One-time set-up, with the view in place.
    virtual void mainViewDidLoad() = 0;
    /// The pane has been shown.
    virtual void didSelect() = 0;
    /// The pane is about to be hidden.
    virtual void willUnselect() = 0;
};

/// What a pane that is a QObject can offer beside: the host asks it by qobject_cast. An interface of its own,
/// because hosts and panes outside this tree know the other one as it is.
class FileOpeningPane {
  public:
    virtual ~FileOpeningPane() = default;

    /// Whether the pane opens files of that name.
    [[nodiscard]] virtual bool opens(const QString& path) const = 0;
    /// The user wants the file at the path opened by the pane, which asks or tells what is the matter by
    /// itself, as soon as it can. To be called while the pane is shown.
    virtual void openFile(const QString& path) = 0;
};

class PreferencePaneFactory {
  public:
    virtual ~PreferencePaneFactory() = default;

    /// Makes the pane of the bundle folder at the path; nothing when the bundle cannot be used.
    [[nodiscard]] virtual std::unique_ptr<PreferencePane> createPane(const QString& bundlePath) = 0;
};

} // namespace quorvi

Q_DECLARE_INTERFACE(quorvi::PreferencePaneFactory, "com.kyvar.PreferencePaneFactory/1")
Q_DECLARE_INTERFACE(quorvi::FileOpeningPane, "com.kyvar.FileOpeningPane/1")
