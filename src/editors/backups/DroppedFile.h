// A file that is dropped onto the window.
#pragma once

#include <QObject>

#include <functional>

class QMimeData;
class QWidget;

namespace quorvi {

/// Accepts one file at a time dropped onto the view; with several, the question would be ambiguous. The
/// pointer shows whether a file is accepted.
class DroppedFile final : public QObject {
  public:
    struct Receiver {
        std::function<bool(const QString& path)> takes; ///< whether files with that name are accepted now
        /// Opens the file, after the drop has been answered.
        std::function<void(const QString& path)> open;
    };

    /// The view owns it.
    DroppedFile(QWidget& view, Receiver receiver);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The single dragged file if it is accepted; else empty.
    [[nodiscard]] QString fileIn(const QMimeData* dragged) const;

    Receiver m_receiver;
};

} // namespace quorvi
