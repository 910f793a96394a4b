#include "platform/XcbConnection.h"

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>

namespace quorvi {

xcb_connection_t* qtXcbConnection() {
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return nullptr;
    return static_cast<xcb_connection_t*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("connection"));
}

} // namespace quorvi
