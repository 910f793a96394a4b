// The desktop's openers for pages, files and applications.
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace quorvi {

class ProcessEnd;

class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Starts the application bundle at the path as a separate process, which outlives this one. Does not
    /// wait. Returns false if it cannot be started.
    ///
    /// `ended` is called once, from the event loop, when the started process has ended; not if another one
    /// has been launched since, nor after this object is destroyed.
    virtual bool launchApplication(const QString& bundlePath, std::function<void()> ended) = 0;
    /// Opens the page in the user's browser.
    virtual void openUrl(const QString& address) = 0;
    /// Opens the file with the user's application for it; an empty path does nothing.
    virtual void openFile(const QString& path) = 0;
};

/// The user's real session.
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
