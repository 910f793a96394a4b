#include "platform/widgets/ShownText.h"

namespace quorvi {

namespace {

constexpr QChar rightToLeftEmbedding(u'\u202B');
constexpr QChar endOfEmbedding(u'\u202C');
constexpr QChar firstStrongIsolate(u'\u2068');
constexpr QChar endOfIsolate(u'\u2069');

/// The marks that begin or end a stretch of a direction: embeddings and overrides, and isolates.
bool isDirectionMark(char16_t unit) {
    return (unit >= u'\u202A' && unit <= u'\u202E') || (unit >= u'\u2066' && unit <= u'\u2069');
}

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

QString nameWithin(const QString& text, const QString& name) {
    QString plain;
    bool turns = text.isRightToLeft();
    for (const QChar character : name) {
        const bool opensOrCloses = isDirectionMark(character.unicode());
        const QChar::Direction direction = character.direction();
        turns = turns || opensOrCloses || direction == QChar::DirR || direction == QChar::DirAL;
        if (!opensOrCloses)
            plain += character;
    }
    return turns ? firstStrongIsolate + plain + endOfIsolate : name;
}

} // namespace quorvi
