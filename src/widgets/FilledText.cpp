#include "widgets/FilledText.h"

#include "widgets/ShownText.h"

namespace quorvi {

QString filledText(const QString& text, const QStringList& parts) {
    QString filled;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const int number =
            text.at(at) == QLatin1Char('^') && at + 1 < text.size() ? text.at(at + 1).digitValue() : -1;
        if (number < 1 || number > parts.size()) {
            filled += text.at(at);
            continue;
        }
        filled += parts.at(number - 1);
        ++at;
    }
    return filled;
}

QString joinedText(const QString& pattern, const QStringList& parts) {
    const auto from = pattern.indexOf(QLatin1String("^1")) + 2;
    return parts.join(pattern.mid(from, pattern.indexOf(QLatin1String("^2")) - from));
}

QString nameFor(const QString& text, const QString& name) {
    return name.isEmpty() ? QStringLiteral("?") : nameWithin(text, shownText(name));
}

} // namespace quorvi
