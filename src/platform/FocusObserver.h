// The three focus notifications that a visible pane follows.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quorvi {

/// Emits signals when the application loses the focus to another one, and when the observed window gains or
/// loses it. A sheet in front of the window also takes the focus from it.
class FocusObserver : public QObject {
    Q_OBJECT

  public:
    explicit FocusObserver(QObject* parent = nullptr);

    /// Starts observing the window; a second start without a stop changes the window.
    void start(QWidget* window);
    void stop();

  signals:
    void applicationDidResignActive();
    void windowDidBecomeKey();
    void windowDidResignKey();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QWidget> m_window;
    QMetaObject::Connection m_applicationState;
};

} // namespace quorvi
