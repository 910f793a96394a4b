// The desktop's own openers: what the user's session does with a page, a file or an application.
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace quorvi {

class ProcessEnd;

class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Starts the application bundle at the path as a process of its own, which outlives this one. Nothing
    /// waits for it. False when it cannot be started.
    ///
    /// `ended` is called once, from the event loop, when a process that was started has ended: not when the
    /// next one was launched before, nor after the end of this object.
    virtual bool launchApplication(const QString& bundlePath, std::function<void()> ended) = 0;
    /// Opens the page in the user's browser.
    virtual void openUrl(const QString& address) = 0;
    /// Opens the file with the application that the user has for it; an empty path does nothing.
    virtual void openFile(const QString& path) = 0;
};

/// The user's session as it is.
class DesktopWorkspace final : public Workspace {
  public:
    DesktopWorkspace();
    ~DesktopWorkspace() override;

    bool launchApplication(const QString& bundlePath, std::function<void()> ended) override;
    void openUrl(const QString& address) override;
    void openFile(const QString& path) override;

  private:
    std::unique_ptr<ProcessEnd> m_launched; ///< the end of the last one; null before the first
};

} // namespace quorvi
