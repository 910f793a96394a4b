#include "widgets/PopUpButton.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <QWheelEvent>

#include "support/WindowTools.h"
#include "widgets/MenuItems.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

QAction* addItem(QMenu& menu, const QString& title, int tag) {
    QAction* item = menu.addAction(QString());
    setTitleOfItem(*item, title);
    setTagOfItem(*item, tag);
    return item;
}

// Alpha 10, separator, Group { Beta 20, Gamma 30 }, List 34 { Edit -1, separator, Named 20 }, Again 30.
QMenu* createMenu() {
    auto menu = std::make_unique<QMenu>();
    addItem(*menu, "Alpha", 10);
    menu->addSeparator();
    QMenu* group = menu->addMenu("Group");
    addItem(*group, "Beta", 20);
    addItem(*group, "Gamma", 30);
    QMenu* list = menu->addMenu("List");
    setTagOfItem(*list->menuAction(), 34);
    addItem(*list, "Edit", -1);
    list->addSeparator();
    addItem(*list, "Named", 20);
    addItem(*menu, "Again", 30);
    return menu.release();
}

QStringList titles(const QList<QAction*>& items) {
    QStringList list;
    for (const QAction* item : items)
        list << titleOfItem(*item);
    return list;
}

} // namespace

class PopUpButtonTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_button = std::make_unique<PopUpButton>();
        m_button->setMenu(createMenu());
        m_button->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_button.get()));
    }

    void cleanup() { m_button.reset(); }

    void itemsAreThoseOfTheMenuAndItsGroupsOnly() {
        QCOMPARE(titles(m_button->items()), QStringList({"Alpha", "Beta", "Gamma", "List", "Again"}));
    }

    void tagIsLookedUpInTheMenuBeforeItsGroups() {
        QCOMPARE(titleOfItem(*m_button->itemWithTag(30)), QString("Again"));
        QCOMPARE(m_button->indexOfItemWithTag(30), 4);
    }

    void tagIsLookedUpInGroupsButNotInLists() {
        QCOMPARE(titleOfItem(*m_button->itemWithTag(20)), QString("Beta"));
        QCOMPARE(m_button->indexOfItemWithTag(20), 1);
        QVERIFY(!m_button->itemWithTag(-1));
        QCOMPARE(m_button->indexOfItemWithTag(-1), -1);
        QVERIFY(!m_button->itemWithTag(0));
    }

    void selectedTitleIsTheOnlyEntry() {
        QVERIFY(m_button->selectItemWithTag(20));
        QCOMPARE(m_button->count(), 1);
        QCOMPARE(m_button->currentText(), QString("Beta"));
        QVERIFY(m_button->selectItemWithTag(34));
        QCOMPARE(m_button->count(), 1);
        QCOMPARE(m_button->currentText(), QString("List"));
        QCOMPARE(m_button->selectedTag(), 34);
    }

    void unknownTagSelectsNoneAndShowsNothing() {
        m_button->selectItemWithTag(10);
        QVERIFY(!m_button->selectItemWithTag(99));
        QVERIFY(!m_button->selectedItem());
        QCOMPARE(m_button->selectedTag(), -1);
        QCOMPARE(m_button->currentText(), QString());
    }

    void nullSelectsNone() {
        m_button->selectItemWithTag(10);
        m_button->selectItem(nullptr);
        QVERIFY(!m_button->selectedItem());
        QCOMPARE(m_button->currentText(), QString());
    }

    void itemOfAListCannotBeSelected() {
        QAction* named = m_button->itemWithTag(34)->menu()->actions().at(2);
        m_button->selectItem(named);
        QVERIFY(!m_button->selectedItem());
    }

    void changedTitleOfTheSelectedItemIsShown() {
        m_button->selectItemWithTag(34);
        setTitleOfItem(*m_button->itemWithTag(34), "Profile: A & B");
        QCOMPARE(m_button->currentText(), QString("Profile: A & B"));
        m_button->selectItemWithTag(10);
        setTitleOfItem(*m_button->itemWithTag(34), "List");
        QCOMPARE(m_button->currentText(), QString("Alpha"));
    }

    void deletedItemIsNoLongerSelected() {
        m_button->selectItemWithTag(10);
        delete m_button->selectedItem();
        QVERIFY(!m_button->selectedItem());
        QCOMPARE(m_button->currentText(), QString());
    }

    void selectedItemAndItsGroupAreChecked() {
        m_button->selectItemWithTag(20);
        QAction* group = m_button->menu()->actions().at(2);
        QVERIFY(m_button->itemWithTag(20)->isChecked());
        QVERIFY(group->isChecked());
        m_button->selectItemWithTag(10);
        QVERIFY(m_button->itemWithTag(10)->isChecked());
        QVERIFY(!m_button->itemWithTag(20)->isChecked());
        QVERIFY(!group->isChecked());
    }

    void selectingByProgramEmitsNothing() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        m_button->selectItemWithTag(10);
        m_button->selectItem(nullptr);
        QCOMPARE(chosen.count(), 0);
    }

    void keysOpenTheMenu_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("withAlt");
        QTest::newRow("Space") << Qt::Key_Space << false;
        QTest::newRow("Down") << Qt::Key_Down << false;
        QTest::newRow("Up") << Qt::Key_Up << false;
        QTest::newRow("F4") << Qt::Key_F4 << false;
        QTest::newRow("Alt+Down") << Qt::Key_Down << true;
    }

    void keysOpenTheMenu() {
        QFETCH(Qt::Key, key);
        QFETCH(bool, withAlt);
        m_button->selectItemWithTag(10);
        QTest::keyClick(m_button.get(), key, withAlt ? Qt::AltModifier : Qt::NoModifier);
        QTRY_VERIFY(m_button->menu()->isVisible());
        QCOMPARE(m_button->selectedTag(), 10);
        m_button->hidePopup();
        QVERIFY(!m_button->menu()->isVisible());
    }

    void otherKeysChangeNothing() {
        m_button->selectItemWithTag(10);
        for (Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_A, Qt::Key_Return})
            QTest::keyClick(m_button.get(), key);
        QVERIFY(!m_button->menu()->isVisible());
        QCOMPARE(m_button->currentText(), QString("Alpha"));
    }

    void clickOpensTheMenuBesideTheButton() {
        QTest::mouseClick(m_button.get(), Qt::LeftButton);
        QTRY_VERIFY(m_button->menu()->isVisible());
        QCOMPARE(m_button->menu()->width() >= m_button->width(), true);
        m_button->hidePopup();
    }

    void otherMouseButtonsDoNotOpenTheMenu() {
        QTest::mouseClick(m_button.get(), Qt::RightButton);
        QVERIFY(!m_button->menu()->isVisible());
    }

    void disabledButtonDoesNotOpen() {
        m_button->setEnabled(false);
        m_button->showPopup();
        QVERIFY(!m_button->menu()->isVisible());
    }

    void wheelChangesNothing() {
        m_button->selectItemWithTag(10);
        const QPointF middle = QRectF(m_button->rect()).center();
        QWheelEvent turn(middle, m_button->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120),
            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QVERIFY(QApplication::sendEvent(m_button.get(), &turn));
        QVERIFY(!turn.isAccepted());
        QCOMPARE(m_button->selectedTag(), 10);
        QVERIFY(!m_button->menu()->isVisible());
    }

    void choiceByKeySelectsAndIsAnnounced() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        m_button->selectItemWithTag(10);
        QTest::keyClick(m_button.get(), Qt::Key_Down);
        QTRY_VERIFY(m_button->menu()->isVisible());
        QTest::keyClick(m_button->menu(), Qt::Key_Up); // from the first item to the last
        QTest::keyClick(m_button->menu(), Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(m_button->selectedItem(), m_button->menu()->actions().last());
        QCOMPARE(m_button->currentText(), QString("Again"));
    }

    void choiceByMouseSelectsAndIsAnnounced() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        m_button->showPopup();
        QTRY_VERIFY(m_button->menu()->isVisible());
        QAction* alpha = m_button->menu()->actions().first();
        quorvi::test::clickItem(m_button->menu(), alpha);
        QTRY_COMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().value<QAction*>(), alpha);
        QCOMPARE(m_button->selectedTag(), 10);
    }

    void choosingTheSelectedItemAgainIsAnnouncedAndKeepsItChecked() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        m_button->selectItemWithTag(10);
        m_button->itemWithTag(10)->trigger();
        QCOMPARE(chosen.count(), 1);
        QVERIFY(m_button->itemWithTag(10)->isChecked());
    }

    void choiceInAGroupSelectsIt() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        QMenu* group = m_button->menu()->actions().at(2)->menu();
        group->actions().at(1)->trigger();
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(m_button->currentText(), QString("Gamma"));
    }

    void choiceInAListChangesNothingAndIsAnnouncedAsOne() {
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        QSignalSpy chosenInList(m_button.get(), &PopUpButton::listItemChosen);
        m_button->selectItemWithTag(10);
        QAction* named = m_button->itemWithTag(34)->menu()->actions().at(2);
        named->trigger();
        QCOMPARE(chosen.count(), 0);
        QCOMPARE(chosenInList.count(), 1);
        QCOMPARE(chosenInList.first().first().value<QAction*>(), named);
        QCOMPARE(m_button->selectedTag(), 10);
        m_button->itemWithTag(20)->trigger();
        QCOMPARE(chosenInList.count(), 1);
    }

    void menuIsOwned() {
        QPointer<QMenu> first = m_button->menu();
        m_button->selectItemWithTag(10);
        m_button->setMenu(createMenu());
        QVERIFY(!first);
        QVERIFY(!m_button->selectedItem());
        QPointer<QMenu> second = m_button->menu();
        m_button.reset();
        QVERIFY(!second);
    }

    void screenReadersSeeAComboBoxWithTheSelectedTitle() {
        m_button->selectItemWithTag(10);
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(m_button.get());
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::ComboBox);
        QCOMPARE(accessible->text(QAccessible::Value), QString("Alpha"));
        m_button->selectItemWithTag(20);
        QCOMPARE(accessible->text(QAccessible::Value), QString("Beta"));
    }

    void copyOfAMenuHasItsItemsTagsAndSubmenusButNoConnections() {
        QMenu& menu = *m_button->menu();
        menu.actions().first()->setEnabled(false);
        menu.actions().first()->setProperty("action", "act:");
        const std::unique_ptr<QMenu> copy = copyOfMenu(menu);
        QCOMPARE(titles(selectableItems(*copy)), titles(m_button->items()));
        QCOMPARE(copy->actions().size(), menu.actions().size());
        QVERIFY(copy->actions().at(1)->isSeparator());
        QVERIFY(!copy->actions().first()->isEnabled());
        QCOMPARE(copy->actions().first()->property("action").toString(), QString("act:"));
        QCOMPARE(tagOfItem(*copy->actions().at(3)), std::optional(34));
        QCOMPARE(copy->actions().at(3)->menu()->actions().size(), 3);
        QSignalSpy chosen(m_button.get(), &PopUpButton::itemChosen);
        copy->actions().last()->trigger();
        QCOMPARE(chosen.count(), 0);
    }

    void ampersandsOfATitleAreShown() {
        QAction item;
        setTitleOfItem(item, "Cut & Paste && More");
        QCOMPARE(titleOfItem(item), QString("Cut & Paste && More"));
        item.setText("&Open");
        QCOMPARE(titleOfItem(item), QString("Open"));
        item.setText("Odd&");
        QCOMPARE(titleOfItem(item), QString("Odd"));
    }

    void aLongTitleIsCutInTheMenuOnly() {
        QAction item;
        setTitleOfItem(item, QString(80, 'x'));
        QCOMPARE(shownTitleOfItem(item), QString(80, 'x'));
        setTitleOfItem(item, QString(1000000, '&'));
        QCOMPARE(item.text().size(), 161);
        QCOMPARE(shownTitleOfItem(item), QString(80, '&') + QString::fromUtf8("…"));
        QCOMPARE(titleOfItem(item), QString(1000000, '&'));
        setTitleOfItem(item, "Short");
        QCOMPARE(titleOfItem(item), QString("Short"));
        QCOMPARE(shownTitleOfItem(item), QString("Short"));
    }

    void aTitleThatDoesNotFitIsToldUnderThePointer() {
        const auto told = [this] {
            QToolTip::hideText();
            QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), m_button->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(m_button.get(), &help);
            return QToolTip::text();
        };
        m_button->resize(150, m_button->height());
        m_button->selectItemWithTag(10);
        QCOMPARE(told(), QString());
        setTitleOfItem(*m_button->itemWithTag(10), "Macro: <b>" + QString(40, 'x'));
        QCOMPARE(told(), "<span>Macro: &lt;b&gt;" + QString(40, 'x') + "</span>");
    }

    void aTitleIsNotCutWithinACharacter() {
        const QString smile = QString::fromUtf8("😀");
        QAction item;
        setTitleOfItem(item, QString(79, 'x') + smile);
        QCOMPARE(shownTitleOfItem(item), QString(79, 'x') + QString::fromUtf8("…"));
        setTitleOfItem(item, smile + "x");
        QCOMPARE(shownTitleOfItem(item), smile + "x");
    }

    void aTitleIsShownOnOneLineAndWithoutAShortcut() {
        QAction item;
        setTitleOfItem(item, "Desk\tCtrl+Q\nGame");
        QCOMPARE(item.text(), QString("Desk Ctrl+Q Game"));
        QCOMPARE(titleOfItem(item), QString("Desk\tCtrl+Q\nGame"));
    }

    void aSelectedItemWithALongTitleIsShownCut() {
        setTitleOfItem(*m_button->itemWithTag(10), QString(1000000, 'x'));
        m_button->selectItemWithTag(10);
        QCOMPARE(m_button->currentText().size(), 81);
        const std::unique_ptr<QMenu> copy = copyOfMenu(*m_button->menu());
        QCOMPARE(titleOfItem(*copy->actions().first()), QString(1000000, 'x'));
    }

    void indexInAMenuCountsSeparators() {
        QCOMPARE(indexOfItemWithTag(*m_button->menu(), 34), 3);
        QCOMPARE(indexOfItemWithTag(*m_button->menu(), 20), -1);
        QVERIFY(!quorvi::itemWithTag(*m_button->menu(), 20));
    }

    void aMenuLikeAnotherIsMadeWhenSomebodyAsksForIt() {
        const std::unique_ptr<QMenu> original(createMenu());
        original->setLayoutDirection(Qt::RightToLeft);
        m_button->setMenuLike(*original);
        QVERIFY(m_button->awaitsMenu());
        QCOMPARE(m_button->currentText(), QString());
        QVERIFY(m_button->selectItemWithTag(20));
        QVERIFY(m_button->awaitsMenu());
        QCOMPARE(m_button->currentText(), QString("Beta"));
        QVERIFY(m_button->findChildren<QMenu*>().isEmpty());

        QMenu* menu = m_button->menu();
        QVERIFY(!m_button->awaitsMenu());
        QVERIFY(menu != original.get());
        QCOMPARE(menu, m_button->menu());
        QCOMPARE(menu->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(titles(m_button->items()), titles(selectableItems(*original)));
        QCOMPARE(m_button->selectedTag(), 20);
        QCOMPARE(m_button->currentText(), QString("Beta"));
        QVERIFY(m_button->selectedItem()->isChecked());
    }

    void everyQuestionMakesTheAwaitedMenu() {
        const std::unique_ptr<QMenu> original(createMenu());
        const auto await = [&] {
            m_button->setMenuLike(*original);
            (void)m_button->selectItemWithTag(10);
        };
        await();
        QCOMPARE(m_button->items().size(), 5);
        await();
        QCOMPARE(titleOfItem(*m_button->itemWithTag(30)), QString("Again"));
        await();
        QCOMPARE(m_button->indexOfItemWithTag(34), 3);
        await();
        QCOMPARE(titleOfItem(*m_button->selectedItem()), QString("Alpha"));
        await();
        QCOMPARE(m_button->selectedTag(), 10);
        await();
        m_button->showPopup();
        QTRY_VERIFY(m_button->menu()->isVisible());
        QCOMPARE(m_button->menu()->activeAction(), m_button->itemWithTag(10));
    }

    void anAwaitedItemHasTheTitleThatItWasGiven() {
        const std::unique_ptr<QMenu> original(createMenu());
        m_button->setMenuLike(*original);
        QVERIFY(m_button->selectItemWithTag(20, QString("Beta: one & two\nthree")));
        QVERIFY(m_button->awaitsMenu());
        QCOMPARE(m_button->currentText(), QString("Beta: one & two three"));
        QCOMPARE(titleOfItem(*selectableItemWithTag(*original, 20)), QString("Beta"));

        QCOMPARE(titleOfItem(*m_button->itemWithTag(20)), QString("Beta: one & two\nthree"));
        QCOMPARE(m_button->selectedTag(), 20);
        QCOMPARE(m_button->currentText(), QString("Beta: one & two three"));
        QCOMPARE(titleOfItem(*m_button->itemWithTag(10)), QString("Alpha"));
    }

    void theNextSelectionWithoutATitleShowsTheOriginals() {
        const std::unique_ptr<QMenu> original(createMenu());
        m_button->setMenuLike(*original);
        (void)m_button->selectItemWithTag(20, QString("Other"));
        (void)m_button->selectItemWithTag(20);
        QCOMPARE(m_button->currentText(), QString("Beta"));
        QCOMPARE(titleOfItem(*m_button->itemWithTag(20)), QString("Beta"));
    }

    void aSelectionGivesAnItemThatIsThereItsTitle() {
        QVERIFY(m_button->selectItemWithTag(10, QString("First")));
        QCOMPARE(m_button->currentText(), QString("First"));
        QCOMPARE(titleOfItem(*m_button->itemWithTag(10)), QString("First"));
        QVERIFY(!m_button->selectItemWithTag(99, QString("None")));
        QCOMPARE(m_button->currentText(), QString());
    }

    void tellsOnceThatTheAwaitedMenuIsThere() {
        const std::unique_ptr<QMenu> original(createMenu());
        m_button->setMenuLike(*original);
        (void)m_button->selectItemWithTag(20);
        int told = 0;
        connect(m_button.get(), &PopUpButton::menuMade, m_button.get(), [&] {
            ++told;
            QVERIFY(!m_button->awaitsMenu());
            QCOMPARE(m_button->selectedTag(), 20);
            m_button->menu()->addAction("One more");
        });
        QCOMPARE(told, 0);
        QCOMPARE(titleOfItem(*m_button->items().last()), QString("One more"));
        (void)m_button->menu();
        QCOMPARE(told, 1);
    }

    void anAwaitedMenuShowsNothingForAnUnknownTag() {
        const std::unique_ptr<QMenu> original(createMenu());
        m_button->setMenuLike(*original);
        QVERIFY(m_button->selectItemWithTag(10));
        QVERIFY(!m_button->selectItemWithTag(99));
        QCOMPARE(m_button->currentText(), QString());
        QVERIFY(!m_button->selectedItem());
    }

    void anOriginalThatIsGoneLeavesNoMenu() {
        m_button->setMenuLike(*std::unique_ptr<QMenu>(createMenu()));
        QVERIFY(!m_button->menu());
        QVERIFY(!m_button->selectItemWithTag(10));
    }

    void theWidthDoesNotFollowTheContents() {
        m_button->selectItemWithTag(10);
        const QSize narrow = m_button->sizeHint();
        setTitleOfItem(*m_button->itemWithTag(10), QString(60, 'W'));
        QCOMPARE(m_button->sizeHint(), narrow);
        QVERIFY(narrow.width() >= 14 * m_button->fontMetrics().horizontalAdvance('X'));
    }

  private:
    std::unique_ptr<PopUpButton> m_button;
};

QUORVI_WIDGET_TEST_MAIN(PopUpButtonTest)
#include "PopUpButtonTest.moc"
