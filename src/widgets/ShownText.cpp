#include "widgets/ShownText.h"

#include <algorithm>
#include <iterator>

namespace quorvi {

namespace {

constexpr QChar rightToLeftEmbedding(u'\u202B');
constexpr QChar endOfEmbedding(u'\u202C');
constexpr QChar firstStrongIsolate(u'\u2068');
constexpr QChar endOfIsolate(u'\u2069');

/// Marks that begin or end a range with its own direction: embeddings, overrides and isolates.
bool setsDirection(QChar character) {
    const char16_t unit = character.unicode();
    return (unit >= u'\u202A' && unit <= u'\u202E') || unit == u'\u2066' || unit == u'\u2067';
}

template <typename Predicate>
QString without(const QString& text, Predicate isUnwanted) {
    QString rest;
    rest.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(rest),
        [&](QChar character) { return !isUnwanted(character); });
    return rest;
}

bool isWrittenFromTheRight(QChar character) {
    const QChar::Direction direction = character.direction();
    return direction == QChar::DirR || direction == QChar::DirAL;
}

QString withoutDirectionMarks(const QString& name) {
    return without(name, [](QChar character) { return setsDirection(character) || isolatesName(character); });
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

QString withoutDirection(const QString& text) {
    return without(text, setsDirection);
}

QString shownName(const QString& name) {
    return shownText(withoutDirectionMarks(name));
}

QString nameWithin(const QString& text, const QString& name) {
    const QString plain = withoutDirectionMarks(name);
    const bool turns = text.isRightToLeft() || plain.size() != name.size() ||
                       std::any_of(plain.begin(), plain.end(), isWrittenFromTheRight);
    return turns ? firstStrongIsolate + plain + endOfIsolate : name;
}

bool isolatesName(QChar character) {
    return character == firstStrongIsolate || character == endOfIsolate;
}

QString withoutMarkup(QString text) {
    const QChar joiner(0x2060); // has no width, and no tag or entity begins with it
    return text.replace(QLatin1Char('<'), QLatin1Char('<') + QString(joiner))
        .replace(QLatin1Char('&'), QLatin1Char('&') + QString(joiner));
}

} // namespace quorvi
