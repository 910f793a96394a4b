#include "widgets/MenuButton.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QSignalSpy>

#include "widgets/AccessibleWidgets.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class MenuButtonTest : public QObject {
    Q_OBJECT

    std::shared_ptr<void> m_known = accessibleWidgets();
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<MenuButton> m_button;

    [[nodiscard]] QAccessibleInterface& accessible() const {
        return *QAccessible::queryAccessibleInterface(m_button.get());
    }
    [[nodiscard]] QAccessibleActionInterface& actions() const { return *accessible().actionInterface(); }
    void press() const { actions().doAction(QAccessibleActionInterface::pressAction()); }

  private slots:
    void init() {
        m_menu = std::make_unique<QMenu>();
        m_menu->addAction("First");
        m_button = std::make_unique<MenuButton>();
        m_button->setCommands(m_menu.get());
        m_button->show();
    }

    void aReaderOpensTheMenuAtItsFirstItem() {
        press();
        QVERIFY(m_menu->isVisible());
        QVERIFY(m_button->isDown());
        QCOMPARE(m_menu->activeAction(), m_menu->actions().constFirst());
        m_menu->hide();
        QVERIFY(!m_button->isDown());
    }

    void aReaderOpensTheMenuAgainRightAfterAChoice() {
        const QSignalSpy shown(m_menu.get(), &QMenu::aboutToShow);
        press();
        m_menu->actions().constFirst()->trigger();
        QVERIFY(!m_menu->isVisible());
        press();
        QVERIFY(m_menu->isVisible());
        QCOMPARE(shown.count(), 2);
    }

    void aReaderHearsThatThereIsAMenu() {
        QCOMPARE(accessible().role(), QAccessible::PushButton);
        QVERIFY(accessible().state().hasPopup);
        QVERIFY(!accessible().state().pressed);
        press();
        QVERIFY(accessible().state().pressed);
    }

    void aDisabledButtonOpensNothing() {
        m_button->setEnabled(false);
        QVERIFY(!actions().actionNames().contains(QAccessibleActionInterface::pressAction()));
        press();
        QVERIFY(!m_menu->isVisible());
        m_button->setEnabled(true);
        QCOMPARE(actions().actionNames().constFirst(), QAccessibleActionInterface::pressAction());
    }

    void aButtonWithoutCommandsStaysUp() {
        m_button->setCommands(nullptr);
        press();
        QVERIFY(!m_button->isDown());
    }
};

QUORVI_WIDGET_TEST_MAIN(MenuButtonTest)
#include "MenuButtonTest.moc"
