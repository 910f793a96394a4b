// The head of the window: which profile is edited, and what is known of the mouse. Without a mouse all below
// it is greyed.
#pragma once

#include <QString>

#include "window/EditorContext.h"

class QLabel;
class QPushButton;
class QTabWidget;

namespace quorvi {

class HelperLink;

class WindowHead {
  public:
    struct Views {
        QLabel& profile;
        QLabel& connection; ///< beside it
        QLabel& noMacro;    ///< on the macros tab: says the same while there is no mouse
        QTabWidget& tabs;
        QPushButton& checkForUpdates; ///< on a tab, and of use without a mouse too
    };

    WindowHead(const EditorContext& context, const Views& views, const HelperLink& helper);

    void show();
    /// Says what is known of the mouse.
    void showConnection();
    /// The name of the current profile as it is shown, or that no mouse is connected.
    [[nodiscard]] QString title() const;

  private:
    EditorContext m_context;
    Views m_views;
    const HelperLink& m_helper;
    QString m_usualNoMacro; ///< with a mouse
};

} // namespace quorvi
