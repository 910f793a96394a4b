// The Tab key follows the reading order, mirrored too, and the focused control is visible.

#include <QStandardItemModel>
#include <QStyleFactory>
#include <QTabBar>
#include <QTemporaryDir>

#include "design/Languages.h"
#include "widgets/FaultLine.h"
#include "widgets/StageBar.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QList<StageField> kStages{{"400", 400, 400}, {"800", 800, 800}};

QRect placeOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// What the Tab key stops at in the view, in its order from that widget on.
QList<QWidget*> stopsIn(QWidget& view, QWidget& first) {
    QList<QWidget*> stops;
    QWidget* widget = &first;
    do {
        const bool isStop = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() &&
                            widget->isEnabled() && view.isAncestorOf(widget) &&
                            widget->window() == view.window() && !widget->focusProxy();
        if (isStop && (widget->objectName().startsWith("quorvi") || qobject_cast<QTabBar*>(widget)))
            stops << widget;
        widget = widget->nextInFocusChain();
    } while (widget != &first);
    return stops;
}

/// The same from the view on.
QList<QWidget*> stopsIn(QWidget& view) {
    return stopsIn(view, view);
}

/// Reading on from the one, the eye comes to the other: further down, or further along and not up to before.
bool leadsTo(const QWidget& from, const QWidget& to) {
    const QRect first = placeOf(from);
    const QRect second = placeOf(to);
    // The drawing of the mouse is never mirrored, nor the columns beside it.
    const bool mirrored = from.parentWidget()->layoutDirection() == Qt::RightToLeft;
    const bool below = second.top() >= first.bottom();
    const bool along = mirrored ? second.right() <= first.left() : second.left() >= first.right();
    return below || along;
}

/// Where the Tab key goes against the eye, on this way through a view.
QStringList leapsOn(const QList<QWidget*>& stops) {
    QStringList leaps;
    for (int i = 1; i < stops.size(); ++i)
        if (!leadsTo(*stops[i - 1], *stops[i]))
            leaps << stops[i - 1]->objectName() + " to " + stops[i]->objectName();
    return leaps;
}

int differentPixels(const QImage& one, const QImage& other) {
    int different = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            different += one.pixel(x, y) != other.pixel(x, y);
    return different;
}

} // namespace

class FocusOrderTest : public QObject {
    Q_OBJECT

  private slots:
    /// A style that fades the focus in shows nothing of it in the first picture.
    void initTestCase() {
        QVERIFY(m_settings.isValid());
        QFile style(m_settings.filePath(QStringLiteral("breezerc")));
        QVERIFY(style.open(QIODevice::WriteOnly));
        style.write("[Style]\nAnimationsEnabled=false\n");
        qputenv("XDG_CONFIG_HOME", m_settings.path().toUtf8());
    }

    void onEachTabTheKeysFollowTheEye_data() { directions(); }
    void onEachTabTheKeysFollowTheEye() {
        const SpokenInterface spoken(QTest::currentDataTag());
        auto& main = spoken.views->main;
        main.quorviTabsShowHideSteps->setCurrentIndex(0);
        main.viewStepFault->say("-", "-");
        main.quorviViewStages->setStages(kStages, 1);
        spoken.view->show();
        int stops = 0;
        for (int tab = 0; tab < main.quorviTabsMain->count(); ++tab) {
            main.quorviTabsMain->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            // From the row of tabs, as the key leads into the page. The page itself is no stop, and Qt
            // releases differ in where they have it in the ring.
            const QList<QWidget*> way =
                stopsIn(*main.quorviTabsMain->widget(tab), *main.quorviTabsMain->tabBar());
            QCOMPARE(leapsOn(way).join("; "), QString());
            stops += int(way.size());
        }
        QCOMPARE(stops, 9 + 11 + 6 + 13 + 8);
    }

    // The ring of stops closes over the buttons at the top, on to the tabs and into the tab that is open.
    void fromTheTopTheKeysGoToTheTabs_data() { directions(); }
    void fromTheTopTheKeysGoToTheTabs() {
        const SpokenInterface spoken(QTest::currentDataTag());
        auto& main = spoken.views->main;
        spoken.view->show();
        main.quorviMenuProfile->setEnabled(true);
        main.quorviButtonRedo->setEnabled(true);
        QVERIFY(leadsTo(*main.quorviMenuProfile, *main.quorviButtonRedo));
        QVERIFY(leadsTo(*main.quorviButtonRedo, *main.quorviButtonHelp));
        QList<QWidget*> stops = stopsIn(*spoken.view);
        QVERIFY(stops.size() > 10);
        const auto help = stops.indexOf(main.quorviButtonHelp);
        QCOMPARE(stops[help - 1], main.quorviButtonRedo);
        QCOMPARE(stops[help - 2], main.quorviMenuProfile);
        QCOMPARE(stops[(help + 1) % stops.size()], main.quorviTabsMain->tabBar());
        QCOMPARE(stops[(help + 2) % stops.size()], main.quorviMenuTop1);
    }

    void onEachSheetTheKeysFollowTheEye_data() { directions(); }
    void onEachSheetTheKeysFollowTheEye() {
        const SpokenInterface spoken(QTest::currentDataTag());
        for (QDialog* sheet : spoken.view->findChildren<QDialog*>()) {
            sheet->show();
            QCoreApplication::processEvents();
            const QList<QWidget*> way = stopsIn(*sheet);
            QVERIFY2(!way.isEmpty(), qPrintable(sheet->objectName()));
            QCOMPARE(leapsOn(way).join("; "), QString());
            sheet->hide();
        }
    }

    void whatHasTheFocusIsSeen_data() {
        QTest::addColumn<QString>("style");
        for (const QString& style : QStyleFactory::keys())
            QTest::newRow(qPrintable(style)) << style;
    }
    void whatHasTheFocusIsSeen() {
        QFETCH(QString, style);
        QApplication::setStyle(style);
        const SpokenInterface spoken("en");
        auto& main = spoken.views->main;
        main.quorviTabsShowHideSteps->setCurrentIndex(0);
        main.quorviViewStages->setStages(kStages, 1);
        for (QWidget* button : std::initializer_list<QWidget*>{
                 main.quorviMenuProfile, main.quorviButtonUndo, main.quorviButtonRedo})
            button->setEnabled(true);
        spoken.view->show();
        spoken.view->setAttribute(Qt::WA_KeyboardFocusChange); // as the Tab key does: some styles wait for it
        for (auto* table : spoken.view->findChildren<KyvarQuorviTableView*>()) {
            table->setModel(new QStandardItemModel(2, 2, table));
            table->setCurrentIndex(table->model()->index(0, 0));
        }
        spoken.view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(spoken.view.get()));
        for (int tab = 0; tab < main.quorviTabsMain->count(); ++tab) {
            main.quorviTabsMain->setCurrentIndex(tab);
            for (QWidget* stop : stopsIn(*spoken.view)) {
                QWidget* other = main.quorviButtonHelp;
                if (stop == other)
                    other = main.quorviTabsMain->tabBar();
                stop->setFocus(Qt::TabFocusReason); // a page that is too low scrolls to it
                const QRect around = placeOf(*stop).adjusted(-4, -4, 4, 4);
                other->setFocus(Qt::TabFocusReason);
                const QImage without = spoken.view->grab(around).toImage();
                stop->setFocus(Qt::TabFocusReason);
                QVERIFY(stop->hasFocus() || stop->isAncestorOf(QApplication::focusWidget()));
                const QImage with = spoken.view->grab(around).toImage();
                QVERIFY2(differentPixels(without, with) >= leastPixels, qPrintable(stop->objectName()));
            }
        }
    }

  private:
    static constexpr int leastPixels = 12;

    QTemporaryDir m_settings;

    static void directions() {
        QTest::addColumn<bool>("mirrored");
        QTest::newRow("en") << false;
        QTest::newRow("ar") << true;
    }
};

QUORVI_WIDGET_TEST_MAIN(FocusOrderTest)
#include "FocusOrderTest.moc"
