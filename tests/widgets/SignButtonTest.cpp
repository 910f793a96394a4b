// Buttons with a sign next to their text, in windows of either direction.
#include <QTest>

#include <memory>

#include "widgets/FlatButton.h"
#include "widgets/MenuButton.h"
#include "widgets/ToggleButton.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class SignButtonTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    void looksTheSameWhateverTheApplicationsDirection_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        for (const char* kind : {"sign", "flat", "menu", "toggle"}) {
            QTest::addRow("%s from the left", kind) << QString(kind) << Qt::LeftToRight;
            QTest::addRow("%s from the right", kind) << QString(kind) << Qt::RightToLeft;
        }
    }

    void looksTheSameWhateverTheApplicationsDirection() {
        QFETCH(QString, kind);
        QFETCH(Qt::LayoutDirection, direction);
        const std::unique_ptr<QPushButton> button = made(kind);
        QPixmap dot(16, 16);
        dot.fill(Qt::red);
        button->setIcon(dot);
        button->setText(QStringLiteral("تسجيل"));
        button->setLayoutDirection(direction);
        button->resize(160, 32);
        const QImage before = button->grab().toImage();
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(button->grab().toImage(), before);
    }

  private:
    static std::unique_ptr<QPushButton> made(const QString& kind) {
        if (kind == QLatin1String("flat"))
            return std::make_unique<FlatButton>();
        if (kind == QLatin1String("menu"))
            return std::make_unique<MenuButton>();
        if (kind == QLatin1String("toggle"))
            return std::make_unique<ToggleButton>();
        return std::make_unique<SignButton>();
    }
};

QUORVI_WIDGET_TEST_MAIN(SignButtonTest)
#include "SignButtonTest.moc"
