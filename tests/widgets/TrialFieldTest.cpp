#include "widgets/TrialField.h"

#include <QHBoxLayout>
#include <QLabel>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class TrialFieldTest : public QObject {
    Q_OBJECT

  private slots:
    void hasRoomForAWordOrTwoInEveryFont_data() {
        QTest::addColumn<int>("pixels");
        QTest::newRow("small") << 10;
        QTest::newRow("large") << 26;
    }
    void hasRoomForAWordOrTwoInEveryFont() {
        QFETCH(int, pixels);
        TrialField field;
        QFont font = field.font();
        font.setPixelSize(pixels);
        field.setFont(font);
        field.ensurePolished();
        QVERIFY(field.minimumSizeHint().width() >= QFontMetrics(font).horizontalAdvance("Kind regards,"));
        QCOMPARE(field.minimumSizeHint().height(), field.QLineEdit::minimumSizeHint().height());
    }

    // A plain field would be left a letter or two, as the last line says.
    void keepsItsRoomBesideWhatTakesAll() {
        QWidget row;
        auto* layout = new QHBoxLayout(&row);
        auto* field = new TrialField;
        auto* other = new QLabel("The words of a button that have less of a claim");
        other->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        layout->addWidget(field);
        layout->addWidget(other, 1);
        row.resize(row.minimumSizeHint());
        row.show();
        QVERIFY(QTest::qWaitForWindowExposed(&row));
        const int words = field->fontMetrics().horizontalAdvance("Kind regards,");
        QVERIFY(field->width() >= words);
        QVERIFY(field->QLineEdit::minimumSizeHint().width() < words);
    }
};

QUORVI_WIDGET_TEST_MAIN(TrialFieldTest)
#include "TrialFieldTest.moc"
