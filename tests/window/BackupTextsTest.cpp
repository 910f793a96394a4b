// Differences between settings, in the words, numbers and lists of the user.
#include "window/BackupTexts.h"

#include <QLocale>
#include <QTest>

#include "model/Trees.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

plist::Dictionary treeWithAcceleration(float factor) {
    const auto driver = dict({{"enableaccel", true}, {"acceleration", factor}});
    return dict({{"profiles", list({dict({{"name", u"Drawing"}, {"driver", driver}})})}});
}

plist::Dictionary treeWithStages(std::initializer_list<int> resolutions) {
    const auto stages = plist::Array::create();
    for (const int dpi : resolutions)
        stages.append(dict({{"dpix", dpi}, {"dpiy", 0}}));
    return dict({{"profiles", list({dict({{"name", u"Drawing"}, {"stages", stages}})})}});
}

} // namespace

class BackupTextsTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void numbersHaveTheDecimalSignOfTheLocale_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("shown");
        QTest::newRow("English") << QLocale(QLocale::English) << "Acceleration of “Drawing”: 0.50 → 1.50";
        QTest::newRow("German") << QLocale(QLocale::German) << "Acceleration of “Drawing”: 0,50 → 1,50";
    }

    void numbersHaveTheDecimalSignOfTheLocale() {
        QFETCH(QLocale, locale);
        QFETCH(QString, shown);
        QLocale::setDefault(locale);
        const auto english = [](const char* text) { return QString::fromUtf8(text); };
        QCOMPARE(differenceTexts(treeWithAcceleration(0.5F), treeWithAcceleration(1.5F), english),
            QStringList(shown));
    }

    void stagesAreListedAsTheLanguageListsThem() {
        const auto japanese = [](const char* text) {
            return std::string_view(text) == "^1, ^2, ^3" ? QStringLiteral("^1、^2、^3")
                                                          : QString::fromUtf8(text);
        };
        const QStringList texts =
            differenceTexts(treeWithStages({400}), treeWithStages({400, 800}), japanese);
        QCOMPARE(texts, QStringList(QStringLiteral("Stages of “Drawing”: 400 → 400、800")));
    }
};

QUORVI_WIDGET_TEST_MAIN(BackupTextsTest)
#include "BackupTextsTest.moc"
