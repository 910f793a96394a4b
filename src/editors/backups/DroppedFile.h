// A file that is dropped onto the window.
#pragma once

#include <QObject>

#include <functional>

class QMimeData;
class QWidget;

namespace quorvi {

/// Lets one file at a time be dropped onto the view; of several nobody could tell which is asked about. The
/// pointer says what is not taken.
class DroppedFile final : public QObject {
  public:
    struct Receiver {
        std::function<bool(const QString& path)> takes; ///< files of that name, now
        /// What is to be done with one, once whoever has dropped it is free again.
        std::function<void(const QString& path)> open;
    };

    /// Belongs to the view.
    DroppedFile(QWidget& view, Receiver receiver);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The one file that is dragged and is taken; empty when there is none.
    [[nodiscard]] QString fileIn(const QMimeData* dragged) const;

    Receiver m_receiver;
};

} // namespace quorvi
