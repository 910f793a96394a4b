#include "platform/widgets/ShownText.h"

namespace quorvi {

QString shownText(const QString& text) {
    if (text.size() <= longestShownText)
        return text;
    QString shown = text.left(longestShownText);
    if (shown.at(shown.size() - 1).isHighSurrogate())
        shown.chop(1);
    return shown + QChar(0x2026);
}

} // namespace quorvi
