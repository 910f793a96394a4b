// A file that the user wants to open, kept until the panel can ask about it.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace quorvi {

/// The file waits for the settings, which arrive with the first device list, and for the end of an open
/// sheet. A later file replaces it.
class FileToOpen final : public QObject {
  public:
    struct Panel {
        std::function<bool()> isFree; ///< the panel is visible, has settings and is not in use
        std::function<void(const QString& path)> open; ///< asks about the file
    };

    explicit FileToOpen(Panel panel) : m_panel(std::move(panel)) {}

    /// Opens the file as soon as the panel is free, and not before the caller returns.
    void open(const QString& path);
    /// Call this when the panel may be free.
    void tryLater();
    /// Call this when the panel is hidden: drops the file.
    void forget() { m_path.clear(); }
    [[nodiscard]] bool canOpen() const { return m_panel.isFree(); }

  private:
    void tryNow();

    Panel m_panel;
    QString m_path; ///< empty while no file waits
};

} // namespace quorvi
