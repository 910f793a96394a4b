#include "resources/Interface.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QHeaderView>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>
#include <set>

#include "resources/Outlets.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;
using quorvi::test::Outlet;
using quorvi::test::outlets;

namespace {

bool isControl(const QWidget& widget) {
    const bool partOfAnother =
        widget.objectName().startsWith("qt_") || qobject_cast<const QHeaderView*>(&widget) ||
        qobject_cast<const QScrollBar*>(&widget) || widget.parentWidget()->inherits("QTabBar") ||
        widget.inherits("QTableCornerButton") || widget.inherits("QComboBoxListView");
    if (partOfAnother)
        return false;
    return widget.inherits("QAbstractButton") || widget.inherits("QComboBox") ||
           widget.inherits("QAbstractSlider") || widget.inherits("QAbstractItemView") ||
           widget.inherits("QLineEdit") || widget.inherits("QAbstractSpinBox") ||
           widget.inherits("QTabWidget") || widget.inherits("QProgressBar");
}

// The letter after the mark of the key; nothing when the text marks none.
QString keyOf(const QString& text) {
    const auto mark = text.indexOf('&');
    return mark < 0 ? QString() : text.mid(mark + 1, 1).toLower();
}

QStringList fontFamilies() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QFontDatabase::families();
#else
    return QFontDatabase().families();
#endif
}

QStringList keysIn(const QWidget& view) {
    QStringList keys;
    for (const QLabel* label : view.findChildren<QLabel*>()) {
        if (label->buddy())
            keys << keyOf(label->text());
    }
    for (const QAbstractButton* button : view.findChildren<QAbstractButton*>())
        keys << keyOf(button->text());
    keys.removeAll(QString());
    return keys;
}

} // namespace

class InterfaceTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        cleanup();
        m_view = std::make_unique<QWidget>();
        m_interface = std::make_unique<Interface>(*m_view);
    }

    void cleanup() {
        m_view.reset();
        m_interface.reset();
    }

    void aTextOnAPageThatScrollsKeepsNoHeightOfAnEarlierWidth() {
        int hints = 0;
        for (const auto* page : m_view->findChildren<ScrollPage*>()) {
            for (QLabel* label : page->findChildren<QLabel*>()) {
                if (!label->wordWrap() || label->text().isEmpty())
                    continue;
                const int before = label->minimumHeight();
                label->resize(30, 10);
                QResizeEvent resized(label->size(), label->size());
                QApplication::sendEvent(label, &resized);
                QCOMPARE(label->minimumHeight(), before);
                ++hints;
            }
        }
        QVERIFY(hints > 2);
    }

    void textsOfAnyDirectionStandWhereTheLanguageBegins() {
        for (const char* name : {"quorviTextProfile", "labelSteps"}) {
            auto* label = m_view->findChild<QLabel*>(QLatin1String(name));
            setLayoutDirection(*m_view, Qt::RightToLeft);
            QCOMPARE(int(label->alignment()), int(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute));
            setLayoutDirection(*m_view, Qt::LeftToRight);
            QCOMPARE(int(label->alignment()), int(Qt::AlignLeft | Qt::AlignVCenter | Qt::AlignAbsolute));
        }
    }

    void everyOutletIsThereOnce_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(outlets)); ++i)
            QTest::newRow(outlets[i].name) << i;
    }

    void everyOutletIsThereOnce() {
        QFETCH(int, index);
        const Outlet& outlet = outlets[index];
        const QList<QWidget*> found = m_view->findChildren<QWidget*>(outlet.name);
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first()->metaObject()->className(), outlet.className);
        QCOMPARE(found.first()->property("action").toString(), QString(outlet.action));
        QCOMPARE(found.first()->property("tag").toInt(), outlet.tag);
    }

    void noOtherWidgetIsNamedLikeAnOutlet() {
        std::set<QString> known;
        for (const Outlet& outlet : outlets)
            known.insert(outlet.name);
        for (const QWidget* widget : m_view->findChildren<QWidget*>()) {
            if (widget->objectName().startsWith("quorvi") && !qobject_cast<const QMenu*>(widget))
                QVERIFY2(known.count(widget->objectName()) == 1, qPrintable(widget->objectName()));
            else
                QVERIFY2(!isControl(*widget), qPrintable(widget->objectName()));
        }
    }

    void tabsAreInOrder() {
        const QTabWidget* tabs = m_interface->main.quorviTabsMain;
        QStringList names;
        for (int i = 0; i < tabs->count(); ++i)
            names << tabs->widget(i)->objectName();
        QCOMPARE(
            names, QStringList({"tabButtons", "tabSensitivity", "tabProfiles", "tabMacros", "tabDevice"}));
        QCOMPARE(tabs->currentIndex(), 0);
    }

    void hiddenTabsCountForTheSizeButAreNotAskedForEveryWidth() {
        auto* tabs = m_interface->main.quorviTabsMain;
        auto* text = new QLabel(QStringLiteral("A text that is wrapped"));
        text->setWordWrap(true);
        tabs->widget(0)->layout()->addWidget(text);
        QVERIFY(tabs->widget(0)->hasHeightForWidth());
        QVERIFY(!tabs->hasHeightForWidth());
        tabs->widget(4)->setMinimumSize(1234, 987);
        QVERIFY(m_view->minimumSizeHint().width() >= 1234);
        QVERIFY(m_view->minimumSizeHint().height() >= 987);
    }

    void stepsAreTheFirstPageAndTheHintTheSecond() {
        const QStackedWidget* pages = m_interface->main.quorviTabsShowHideSteps;
        QCOMPARE(pages->count(), 2);
        QVERIFY(pages->widget(0)->isAncestorOf(m_interface->main.quorviTableSteps));
        QVERIFY(pages->widget(0)->isAncestorOf(m_interface->main.quorviButtonStepRecord));
        QCOMPARE(pages->currentIndex(), 1);
    }

    void everyControlTellsAScreenReaderItsNameAndPurpose() {
        int controls = 0;
        for (const QWidget* widget : m_view->findChildren<QWidget*>()) {
            if (!isControl(*widget))
                continue;
            ++controls;
            QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(!widget->accessibleDescription().isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(!widget->accessibleName().contains('&'), qPrintable(widget->objectName()));
        }
        QCOMPARE(controls, 75);
    }

    // A screen reader names a combo box by the label that it is the buddy of, not by its accessible name.
    void everyPopUpHasALabel() {
        for (PopUpButton* button : m_view->findChildren<PopUpButton*>()) {
            const auto relations =
                QAccessible::queryAccessibleInterface(button)->relations(QAccessible::Label);
            QVERIFY2(!relations.isEmpty(), qPrintable(button->objectName()));
        }
    }

    void buttonsWithASignOnlySayWhatTheyDo() {
        for (const QPushButton* button : m_view->findChildren<QPushButton*>()) {
            if (!button->text().isEmpty() || button == m_interface->main.quorviMenuProfile)
                continue;
            QVERIFY2(!button->icon().isNull(), qPrintable(button->objectName()));
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(button->objectName()));
        }
    }

    void noKeyOpensTwoThingsOnOneTab() {
        const QTabWidget* tabs = m_interface->main.quorviTabsMain;
        QStringList always{keyOf(m_interface->main.quorviButtonHelp->text())};
        for (int i = 0; i < tabs->count(); ++i)
            always << keyOf(tabs->tabText(i));
        QVERIFY(!always.contains(QString()));
        for (int i = 0; i < tabs->count(); ++i) {
            const QStringList keys = always + keysIn(*tabs->widget(i));
            const std::set<QString> different(keys.begin(), keys.end());
            QVERIFY2(int(different.size()) == keys.size(), qPrintable(keys.join(' ')));
        }
        QCOMPARE(keysIn(*m_interface->quorviPanelStages), QStringList({"s", "x"}));
    }

    void digitsLeadToTheInputs() {
        for (int n = 1; n <= 9; ++n) {
            const auto* label = m_view->findChild<QLabel*>(QString("labelInput%1").arg(n));
            QCOMPARE(keyOf(label->text()), QString::number(n));
            QCOMPARE(label->buddy()->objectName(), QString("quorviMenuTop%1").arg(n));
        }
    }

    void tabKeyWalksTheInputsColumnByColumn() {
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        m_view->activateWindow();
        QWidget* widget = m_interface->main.quorviMenuTop1;
        widget->setFocus();
        for (const int n : {3, 5, 4, 2, 8, 9, 6, 7}) {
            do
                widget = widget->nextInFocusChain();
            while (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible());
            QCOMPARE(widget->objectName(), QString("quorviMenuTop%1").arg(n));
        }
    }

    void everythingFitsTheSmallestWindowAlsoInLargeLetters_data() {
        QTest::addColumn<QFont>("large");
        for (const auto& [family, points] : quorvi::test::desktopFonts) {
            QFont font = quorvi::test::installedFont(family, points);
            font.setPixelSize(16);
            QTest::newRow(family) << font;
        }
    }

    void everythingFitsTheSmallestWindowAlsoInLargeLetters() {
        QFETCH(QFont, large);
        const QFont before = QApplication::font();
        QApplication::setFont(large);
        init();
        QApplication::setFont(before);
        m_view->show();
        QVERIFY(m_view->minimumSizeHint().width() <= 760);
        QVERIFY2(m_view->minimumSizeHint().height() <= 566, // 600 without a title bar
            qPrintable(QString::number(m_view->minimumSizeHint().height())));
        for (const QDialog* panel : m_view->findChildren<QDialog*>()) {
            QVERIFY2(panel->sizeHint().width() <= 760, qPrintable(panel->objectName()));
            QVERIFY2(panel->sizeHint().height() <= 560, qPrintable(panel->objectName()));
        }
    }

    void hintsAreAsHighAsTheirTextsInEveryWidth() {
        m_view->show();
        for (const QSize& size : {QSize(760, 700), QSize(580, 700), QSize(1600, 1000), QSize(760, 700)}) {
            m_view->resize(size);
            for (const int tab : {1, 4}) {
                m_interface->main.quorviTabsMain->setCurrentIndex(tab);
                for (const char* name : {"textStagesHint", "textPollingHint", "textLightsHint"})
                    if (const auto* hint = m_view->findChild<QLabel*>(name); hint->isVisible())
                        QTRY_COMPARE(hint->height(), hint->heightForWidth(hint->width()));
            }
        }
    }

    void noFontsAreKnownButThoseOfTheTests() {
        QStringList known = fontFamilies();
        known.erase(std::remove_if(known.begin(), known.end(),
                        [](const QString& family) {
                            return family.startsWith("DejaVu Sans") || family.startsWith("Noto Sans") ||
                                   family.startsWith("Cantarell");
                        }),
            known.end());
        QCOMPARE(known, QStringList({"Monospace", "Sans Serif", "Serif"})); // Qt's names for any
    }

    void headingsFollowTheFontOfTheDesktopInPointsAndInPixels() {
        const QFont before = QApplication::font();
        QFont pixels = before;
        pixels.setPixelSize(20);
        QApplication::setFont(pixels);
        init();
        QApplication::setFont(before);
        QCOMPARE(m_interface->main.quorviTextProfile->font().pixelSize(), 26);
        QCOMPARE(m_view->findChild<QLabel*>("textButtonsHint")->font().pixelSize(), 18);
        init();
        QVERIFY(m_interface->main.quorviTextProfile->font().pointSizeF() >= 1.3 * before.pointSizeF());
        QVERIFY(m_interface->main.quorviTextProfile->font().bold());
    }

    void sensitivitySlidersMoveByTheStepsOfTheMouse() {
        const auto& main = m_interface->main;
        const auto& stages = m_interface->stages;
        for (const KyvarQuorviSlider* control : {main.quorviSliderSensitivityX, main.quorviSliderSensitivityY,
                 stages.quorviStageSliderX, stages.quorviStageSliderY}) {
            QCOMPARE(control->minimum(), 100);
            QCOMPARE(control->maximum(), 6475);
            QCOMPARE(control->singleStep(), 25);
            QCOMPARE(control->pageStep(), 250);
            QCOMPARE(control->value(), 1500);
            QCOMPARE(control->tickPosition(), QSlider::NoTicks); // 255 steps have none
            QCOMPARE(control->orientation(), Qt::Horizontal);
        }
    }

    void accelerationSliderGoesFromOneToTenInHundredths() {
        KyvarQuorviSlider* control = m_interface->main.quorviSliderAcceleration;
        for (int position = 1; position <= 10; ++position) { // the mouse can be let go exactly there
            control->setFloatValue(float(position));
            QCOMPARE(control->nearestStep(control->value()), 100 * position);
            QCOMPARE(control->floatValue(), float(position));
        }
        control->setFloatValue(5.0F);
        QCOMPARE(control->floatValue(), 5.0F);
        control->setFloatValue(0.0F);
        QCOMPARE(control->floatValue(), 1.0F);
        control->setFloatValue(11.0F);
        QCOMPARE(control->floatValue(), 10.0F);
        control->setFloatValue(3.25F);
        QCOMPARE(control->floatValue(), 3.25F);
    }

    void recordButtonHasTwoTitlesAndStaysDown() {
        const QPushButton* record = m_interface->main.quorviButtonStepRecord;
        QCOMPARE(record->text(), QString("Record"));
        QCOMPARE(record->property("alternateTitle").toString(), QString("Stop"));
        QVERIFY(record->isCheckable());
    }

    void textsOfTheUserAreShownAsTheyStand() {
        for (const QLabel* label : std::initializer_list<QLabel*>{m_interface->main.quorviTextProfile,
                 m_interface->main.quorviTextDPI, m_interface->main.quorviTextFirmwareVersion,
                 m_interface->main.quorviTextDriverVersion, m_interface->confirm.quorviTextConfirm})
            QCOMPARE(label->textFormat(), Qt::PlainText);
    }

    void defaultButtonOfTheQuestionIsTheSafeOne() {
        QVERIFY(m_interface->confirm.quorviConfirmButtonCancel->isDefault());
        QVERIFY(!m_interface->confirm.quorviConfirmButtonOK->isDefault());
        QVERIFY(m_interface->noDevice.quorviNoDeviceButtonOK->isDefault());
        QVERIFY(m_interface->stages.quorviStagesButtonOK->isDefault());
        QVERIFY(m_interface->setUp.quorviSetUpButtonDone->isDefault());
    }

    void escapeRejectsEachPanel() {
        for (QDialog* panel : m_view->findChildren<QDialog*>()) {
            panel->show();
            QSignalSpy rejected(panel, &QDialog::rejected);
            QTest::keyClick(panel, Qt::Key_Escape);
            QCOMPARE(rejected.count(), 1);
        }
        QCOMPARE(m_view->findChildren<QDialog*>().size(), 6);
    }

    void returnInTheQuestionPressesCancel() {
        QDialog* panel = m_interface->quorviPanelConfirm;
        QSignalSpy confirmed(m_interface->confirm.quorviConfirmButtonOK, &QPushButton::clicked);
        QSignalSpy cancelled(m_interface->confirm.quorviConfirmButtonCancel, &QPushButton::clicked);
        panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel));
        QTest::keyClick(panel, Qt::Key_Return);
        QCOMPARE(cancelled.count(), 1);
        QCOMPARE(confirmed.count(), 0);
    }

    void returnOnTheFocusedButtonPressesIt() {
        QDialog* panel = m_interface->quorviPanelConfirm;
        QPushButton* button = m_interface->confirm.quorviConfirmButtonOK;
        QSignalSpy confirmed(button, &QPushButton::clicked);
        panel->show();
        panel->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(panel));
        QVERIFY(m_interface->confirm.quorviConfirmButtonCancel->hasFocus());
        QTest::keyClick(panel, Qt::Key_Tab);
        QTRY_VERIFY(button->hasFocus());
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(confirmed.count(), 1);
    }

    void questionGrowsWithItsText() {
        QDialog* panel = m_interface->quorviPanelConfirm;
        m_interface->confirm.quorviTextConfirm->setText("Short?");
        panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel));
        const int before = panel->height();
        m_interface->confirm.quorviTextConfirm->setText("One\n\nTwo\n\nThree\n\nFour");
        QTRY_VERIFY(panel->height() > before);
    }

    // A busy display reports the size of a window that is not yet given its own.
    void aSheetThatWasNarrowForAMomentIsNotHigherForIt() {
        QDialog* panel = m_interface->quorviPanelStages;
        panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel));
        QCoreApplication::processEvents();
        const QSize before = panel->size();
        const int least = panel->minimumHeight();
        QWindow* window = panel->windowHandle();
        window->setMinimumSize({});
        window->resize(100, 30);
        QTRY_COMPARE(panel->width(), 100);
        QCoreApplication::processEvents();
        window->resize(before);
        QTRY_COMPARE(panel->width(), before.width());
        QCoreApplication::processEvents();
        QCOMPARE(panel->minimumHeight(), least);
        QCOMPARE(panel->size(), before);
    }

    void fieldOfThePressedKeyTakesNoTyping() {
        const QLineEdit* field = m_interface->singleKey.quorviFieldSingleKey;
        QVERIFY(field->isReadOnly());
        QCOMPARE(field->focusPolicy(), Qt::NoFocus);
    }

    void tablesShareTheMenusOfTheirGears() {
        QCOMPARE(m_interface->main.quorviTableProfiles->menu(), m_interface->menus.quorviMenuProfileGear);
        QCOMPARE(m_interface->main.quorviTableMacros->menu(), m_interface->menus.quorviMenuMacroGear);
        QCOMPARE(m_interface->main.quorviTableSteps->menu(), m_interface->menus.quorviMenuStepGear);
        QVERIFY(!m_interface->stages.quorviStageTableStages->menu());
    }

  private:
    std::unique_ptr<QWidget> m_view;
    std::unique_ptr<Interface> m_interface;
};

QUORVI_WIDGET_TEST_MAIN(InterfaceTest)
#include "InterfaceTest.moc"
