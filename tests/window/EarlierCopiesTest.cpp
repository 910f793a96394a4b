// The rows of the dated copies, in the user's language.
#include "editors/backups/EarlierCopies.h"

#include <QTest>

#include <algorithm>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

const QDateTime kNow(QDate(2026, 11, 23), QTime(12, 0));

std::chrono::system_clock::time_point daysAgo(int days) {
    return std::chrono::system_clock::time_point(
        std::chrono::milliseconds(kNow.addDays(-days).toMSecsSinceEpoch()));
}

QString english(const char* text) {
    return QString::fromUtf8(text);
}

bool hasOtherDigits(const QString& text) {
    return std::any_of(text.begin(), text.end(),
        [](QChar character) { return character.isDigit() && (character < u'0' || character > u'9'); });
}

} // namespace

class EarlierCopiesTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void digitsAreLatinInArabicToo() {
        const QLocale arabic(QLocale::Arabic, QLocale::Egypt);
        QVERIFY(hasOtherDigits(arabic.toString(kNow.time(), QLocale::ShortFormat)));
        QVERIFY(hasOtherDigits(arabic.toString(kNow.date(), QLocale::ShortFormat)));
        for (const int days : {0, 1, 3, 20}) {
            const QString when = whenText(daysAgo(days), kNow, arabic, english);
            QVERIFY2(when.contains(u'2') && !hasOtherDigits(when), qPrintable(when)); // of 12:00
        }
    }

    void aRowBeginsWithACapitalAndASentenceHasTheDaySmall() {
        QLocale::setDefault(QLocale(QLocale::Italian));
        const QString when = whenText(daysAgo(3), kNow, QLocale(), english);
        QVERIFY2(when.startsWith(QStringLiteral("venerdì")), qPrintable(when));
        const EarlierCopies rows({{"", daysAgo(3), CopyReason::beforeDeletion}}, kNow, english);
        const QString row = rows.data(rows.index(0), Qt::DisplayRole).toString();
        QVERIFY2(row.startsWith(QStringLiteral("Venerdì")), qPrintable(row));
    }
};

QUORVI_WIDGET_TEST_MAIN(EarlierCopiesTest)
#include "EarlierCopiesTest.moc"
