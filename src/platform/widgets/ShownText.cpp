#include "platform/widgets/ShownText.h"

namespace quorvi {

namespace {

constexpr QChar rightToLeftEmbedding(u'\u202B');
constexpr QChar endOfEmbedding(u'\u202C');

} // namespace

QString shownText(const QString& text) {
    if (text.size() <= longestShownText)
        return text;
    QString shown = text.left(longestShownText);
    if (shown.at(shown.size() - 1).isHighSurrogate())
        shown.chop(1);
    return shown + QChar(0x2026);
}

QString inItsDirection(const QString& text) {
    return text.isRightToLeft() ? rightToLeftEmbedding + text + endOfEmbedding : text;
}

QString withoutDirection(QString text) {
    return text.remove(rightToLeftEmbedding).remove(endOfEmbedding);
}

} // namespace quorvi
