#include "assignment/EventPatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <memory>

#include "pane/KyvarQuorviPane.h"

namespace quorvi {

KyvarQuorviPane* gPatchedPane = nullptr;

namespace {

/// Sees every event of the host first. While a capture is active no key may reach the host, its shortcuts
/// included: those are decided by a ShortcutOverride at the window object, which has to be accepted as well
/// as consumed.
class KeyDispatch : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!isKeyEvent(event) || !watched->isWindowType() || !gPatchedPane ||
            !gPatchedPane->overrideSingleKeys())
            return false;
        event->accept();
        return true;
    }

  private:
    static bool isKeyEvent(const QEvent* event) {
        return event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress ||
               event->type() == QEvent::KeyRelease;
    }
};

std::unique_ptr<KeyDispatch> gKeyDispatch;

} // namespace

void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane) {
    if (gKeyDispatch) {
        gKeyDispatch.reset();
        gPatchedPane = nullptr;
        return;
    }
    gPatchedPane = pane;
    gKeyDispatch = std::make_unique<KeyDispatch>();
    QCoreApplication::instance()->installEventFilter(gKeyDispatch.get());
}

} // namespace quorvi
