// User actions in the lists: menus with the mouse, names with the keyboard.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "pane/PaneFixture.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"

namespace quorvi::test {

/// Runs the action as soon as a menu is open; ends the test program when none opens.
inline void whenMenuIsOpen(std::function<void(QMenu*)> action) {
    auto* timer = new QTimer(qApp);
    auto waited = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, waited, action = std::move(action)] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) {
            if (++*waited > kWindowPatienceMs / 5)
                qFatal("no menu opens");
            return;
        }
        timer->stop();
        timer->deleteLater();
        action(menu);
    });
    timer->start(5);
}

/// Clicks the item with the tag in the open menu; a disabled item stays unclicked and the menu closes.
inline void clickItem(QMenu* menu, int tag) {
    QAction* item = itemWithTag(*menu, tag);
    if (!item)
        qFatal("the menu has no item %d", tag);
    if (item->isEnabled())
        clickItem(menu, item);
    else
        menu->close();
}

/// The same in the menu that opens.
inline void clickItemWhenOpen(int tag) {
    whenMenuIsOpen([tag](QMenu* menu) { clickItem(menu, tag); });
}

/// Opens the gear menu by its button and clicks the item.
inline void chooseInGearMenu(const PaneFixture& fixture, const char* gearButton, int tag) {
    bool chosen = false;
    whenMenuIsOpen([&chosen, tag](QMenu* menu) {
        clickItem(menu, tag);
        chosen = true;
    });
    fixture.click(gearButton);
    if (!QTest::qWaitFor([&chosen] { return chosen; }, kWindowPatienceMs))
        qFatal("nothing is chosen in the menu");
    QCoreApplication::processEvents(); // the command comes when the menu is done
}

inline QRect cellOf(const PaneFixture& fixture, const char* table, int row, int column) {
    auto* view = fixture.find<KyvarQuorviTableView>(table);
    return view->visualRect(view->model()->index(row, column));
}

/// Right click in the table; below the last row for row -1.
inline void rightClick(const PaneFixture& fixture, const char* table, int row) {
    auto* view = fixture.find<KyvarQuorviTableView>(table);
    const QPoint spot = row < 0 ? view->viewport()->rect().bottomLeft() - QPoint(-20, 5)
                                : cellOf(fixture, table, row, 0).center();
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, spot);
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, view->viewport()->mapToGlobal(spot));
    QCoreApplication::sendEvent(view->viewport(), &event);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, {}, spot);
}

/// The editor of the cell that is being edited; nullptr when none is.
inline QLineEdit* cellEditor(const PaneFixture& fixture, const char* table) {
    return fixture.find<KyvarQuorviTableView>(table)->viewport()->findChild<QLineEdit*>();
}

inline bool waitForCellEditor(const PaneFixture& fixture, const char* table) {
    return QTest::qWaitFor(
        [&] {
            auto* editor = cellEditor(fixture, table);
            return editor && editor->isVisible() && editor->hasFocus();
        },
        kWindowPatienceMs);
}

/// The names in the tree's array, in order.
inline QStringList namesIn(const plist::Dictionary& tree, const char* array) {
    QStringList names;
    const plist::Array items = tree.array(array);
    for (std::size_t index = 0; index < items.size(); ++index)
        names << QString::fromStdU16String(items.dictionary(index).string("name"));
    return names;
}

/// The texts of the column, as the table shows them.
inline QStringList shownIn(const PaneFixture& fixture, const char* table, int column) {
    QStringList texts;
    const auto* model = fixture.find<KyvarQuorviTableView>(table)->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts << model->index(row, column).data().toString();
    return texts;
}

} // namespace quorvi::test
