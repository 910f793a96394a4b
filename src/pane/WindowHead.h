// The head of the window: which profile is edited, the list of the others, and what is known of the mouse.
// Without a mouse all below it is greyed.
#pragma once

#include <QObject>
#include <QString>

#include "window/EditorContext.h"

class QLabel;
class QMenu;
class QPushButton;
class QTabWidget;

namespace quorvi {

namespace plist {
class Dictionary;
}
class ConnectionSign;
class HelperLink;
class KyvarQuorviTableView;
class ProfileButton;

class WindowHead {
  public:
    struct Views {
        ProfileButton& button;
        QMenu& menu; ///< of the button
        QLabel& profile;
        ConnectionSign& sign;
        QLabel& connection; ///< beside it
        QLabel& noMacro;    ///< on the macros tab: the same text while there is no mouse
        QTabWidget& tabs;
        KyvarQuorviTableView& profiles; ///< whose rows are chosen by the menu
        QPushButton& checkForUpdates;   ///< on a tab, and usable without a mouse too
    };

    WindowHead(const EditorContext& context, const Views& views, const HelperLink& helper);

    void show();
    /// Shows the state of the mouse.
    void showConnection();
    /// Says whether the mouse runs the current profile.
    void showRunning();
    /// The displayed name of the current profile, or a text that no mouse is connected.
    [[nodiscard]] QString title() const;
    /// The current profile, with the reason when it is the one that runs.
    [[nodiscard]] QString profileInUse() const;

  private:
    [[nodiscard]] QString nameOf(const plist::Dictionary& profile) const;
    [[nodiscard]] bool isRunning(std::size_t profile) const;
    void listProfiles();
    void choose(int tag);

    EditorContext m_context;
    Views m_views;
    const HelperLink& m_helper;
    QString m_usualNoMacro; ///< with a mouse
    QObject m_connections;  ///< end with this object, which the views may outlive
};

} // namespace quorvi
