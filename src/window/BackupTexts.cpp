#include "window/BackupTexts.h"

#include "history/Differences.h"
#include "widgets/ShownText.h"
#include "window/InputName.h"
#include "window/ShownNumber.h"

namespace quorvi {

namespace {

/// The bar at the bottom of the window covers other content.
constexpr qsizetype kMostLines = 3;

const char* patternOf(LeftOut::What what) {
    switch (what) {
    case LeftOut::What::damagedProfile:
        return "The profile “^1” is left out: it is damaged.";
    case LeftOut::What::profileBeyond:
        return "The profile “^1” is left out: there is only room for 5.";
    case LeftOut::What::damagedMacro:
        return "The macro “^1” is left out: it is damaged.";
    case LeftOut::What::macroOfManySteps:
        return "The macro “^1” is left out: it has more than 16 steps.";
    case LeftOut::What::macroBeyond:
        return "The macro “^1” is left out: there is only room for 12.";
    case LeftOut::What::inputsMacro:
        return "^1 no longer does anything: its macro is missing.";
    case LeftOut::What::inputsProfile:
        return "^1 no longer does anything: its profile is missing.";
    }
    return "";
}

QString leftOutText(const LeftOut& leftOut, const PanelText& text) {
    const QString pattern = text(patternOf(leftOut.what));
    const QString name = QString::fromStdU16String(leftOut.name);
    if (leftOut.input != 0)
        return filledText(pattern, {inputName(leftOut.input, name, text)});
    // An unnamed one is identified by its place in the list.
    return filledText(pattern, {nameFor(pattern, name.isEmpty() ? QString::number(leftOut.number) : name)});
}

/// The phrase in the user's language. Isolates each part's direction: otherwise "500 DPI ← 1000 DPI" within
/// Arabic would read as one text from the left.
QString inUsersWords(const Phrase& phrase, const PanelText& text) {
    QString said = QString::fromStdU16String(phrase.text);
    if (phrase.kind == Phrase::Kind::decimal)
        return withDecimalSign(said);
    if (phrase.kind != Phrase::Kind::pattern && phrase.kind != Phrase::Kind::list)
        return said;
    const QString pattern = text(said.toUtf8().constData());
    QStringList parts;
    for (const Phrase& part : phrase.parts) {
        const QString words = inUsersWords(part, text);
        parts << (part.kind == Phrase::Kind::name ? nameFor(pattern, words) : nameWithin(pattern, words));
    }
    return phrase.kind == Phrase::Kind::list ? joinedText(pattern, parts) : filledText(pattern, parts);
}

} // namespace

QStringList differenceTexts(
    const plist::Dictionary& earlier, const plist::Dictionary& now, const PanelText& text) {
    QStringList texts;
    for (const Phrase& difference : differencesBetween(earlier, now))
        texts << inUsersWords(difference, text);
    return texts;
}

QStringList leftOutTexts(const std::vector<LeftOut>& leftOut, const PanelText& text) {
    QStringList texts;
    for (const LeftOut& one : leftOut)
        texts << leftOutText(one, text);
    return texts;
}

QString withLeftOut(const QString& sentence, const QStringList& leftOut, const PanelText& text) {
    if (leftOut.isEmpty())
        return sentence;
    const qsizetype shown = leftOut.size() <= kMostLines ? leftOut.size() : kMostLines - 1;
    QStringList lines = QStringList(sentence) + leftOut.mid(0, shown);
    if (shown < leftOut.size())
        lines << filledText(text("Number of others left out: ^1"), {QString::number(leftOut.size() - shown)});
    return lines.join(QLatin1Char('\n'));
}

} // namespace quorvi
