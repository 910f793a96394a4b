// A file that the user wants opened, until the panel can ask about it.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace quorvi {

/// Settings are there only after the first list of devices, and while a sheet is up nothing else is asked.
/// The file waits for both. One that comes meanwhile takes its place.
class FileToOpen final : public QObject {
  public:
    struct Panel {
        std::function<bool()> isFree; ///< the panel is shown, has settings and nobody is at it
        std::function<void(const QString& path)> open; ///< asks about the file
    };

    explicit FileToOpen(Panel panel) : m_panel(std::move(panel)) {}

    /// Opens the file as soon as the panel is free, and not before whoever calls is done.
    void open(const QString& path);
    /// The panel may be free now.
    void tryLater();
    /// The panel is hidden: nobody waits any more.
    void forget() { m_path.clear(); }
    [[nodiscard]] bool canOpen() const { return m_panel.isFree(); }

  private:
    void tryNow();

    Panel m_panel;
    QString m_path; ///< empty while no file waits
};

} // namespace quorvi
