// The desktop's own openers: what the user's session does with a page, a file or an application.
#pragma once

#include <QString>

namespace quorvi {

class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Starts the application bundle at the path as a process of its own, which outlives this one. Nothing
    /// waits for it, and nothing is said when it cannot be started.
    virtual void launchApplication(const QString& bundlePath) = 0;
    /// Opens the page in the user's browser.
    virtual void openUrl(const QString& address) = 0;
    /// Opens the file with the application that the user has for it; an empty path does nothing.
    virtual void openFile(const QString& path) = 0;
};

/// The user's session as it is.
class DesktopWorkspace final : public Workspace {
  public:
    void launchApplication(const QString& bundlePath) override;
    void openUrl(const QString& address) override;
    void openFile(const QString& path) override;
};

} // namespace quorvi
