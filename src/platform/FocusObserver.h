// The three focus notifications that a pane follows while it is shown.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quorvi {

/// Tells when the application loses the focus to another one, and when the observed window gains and loses
/// it. A sheet in front of the window takes the focus from it too.
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
