#include "widgets/ProfileButton.h"

#include <QLabel>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class ProfileButtonTest : public QObject {
    Q_OBJECT

  private slots:
    void aButtonThatOpensNothingKeepsTheColourOfItsTitle() {
        QWidget window;
        ProfileButton button(&window);
        button.setEnabled(false); // before it has its label, as in the interface file
        QLabel label("No device connected", &button);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto title = [&] { return label.palette().color(label.foregroundRole()); };
        QVERIFY(!label.isEnabled());
        QCOMPARE(title(), window.palette().color(QPalette::Active, label.foregroundRole()));

        QPalette dark;
        dark.setColor(label.foregroundRole(), QColor(250, 240, 230));
        dark.setColor(QPalette::Disabled, label.foregroundRole(), Qt::gray);
        window.setPalette(dark);
        QCOMPARE(title(), QColor(250, 240, 230));
    }
};

QUORVI_WIDGET_TEST_MAIN(ProfileButtonTest)
#include "ProfileButtonTest.moc"
