#include "window/ShownNumber.h"

#include <QLocale>

namespace quorvi {

char16_t decimalSign() {
    const QString sign(QLocale().decimalPoint());
    return static_cast<char16_t>(sign.isEmpty() ? u'.' : sign.at(0).unicode());
}

QString withDecimalSign(QString number) {
    return decimalSign() == u',' ? number.replace(QLatin1Char('.'), QLatin1Char(',')) : number;
}

} // namespace quorvi
