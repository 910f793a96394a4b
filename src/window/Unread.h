// What is shown in place of a value that has not been read yet: no device list has come, so the settings are
// not known.
#pragma once

#include <QString>

namespace quorvi {

inline QString unreadText() {
    return QStringLiteral("–");
}

} // namespace quorvi
