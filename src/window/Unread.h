// The placeholder for a value not read yet: no device list has arrived, so the settings are unknown.
#pragma once

#include <QString>

namespace quorvi {

inline QString unreadText() {
    return QStringLiteral("–");
}

} // namespace quorvi
