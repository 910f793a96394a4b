// Keeps a grab of the keyboard from looking like a change of the focus.
#pragma once

#include <QAbstractNativeEventFilter>

class QObject;

namespace quorvi {

/// While this exists, Qt does not hear of grabs of the keyboard under X11: by itself, for its menus, by the
/// panel or by another program. A grab begins and ends with its own focus events, which tell where keys go,
/// not where the focus is; Qt treats them as focus changes. A focus that really moves has events of other
/// modes.
class GrabFocusFilter : public QAbstractNativeEventFilter {
  public:
    enum class Hidden { beginnings, beginningsAndEnds };

    explicit GrabFocusFilter(Hidden hidden);

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    using Result = qintptr;
#else
    using Result = long;
#endif
    bool nativeEventFilter(const QByteArray& eventType, void* message, Result* result) override;

  private:
    Hidden m_hidden;
};

/// Hides the beginnings of grabs until the field is destroyed. The field may be open before the display has
/// told of the grab of the menu that opened it; Qt 5 then takes the focus from the field, which closes. The
/// ends are told: Qt may have heard of the beginning.
void hideGrabsDuring(QObject& field);

} // namespace quorvi
