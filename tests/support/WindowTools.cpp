#include "support/WindowTools.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace quorvi::test {

namespace {

/// Longer than a menu waits before it opens a submenu.
constexpr int kSubmenuPatienceMs = 1000;

/// More than a menu ignores as trembling.
constexpr int kMovements = 10;

} // namespace

void clickButton(QAbstractButton* button) {
    if (!button->isEnabled() || !button->isVisible())
        qFatal("%s cannot be clicked", qPrintable(button->objectName()));
    // A check box takes clicks on its square and its text only.
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

QMenu* openMenuOf(QWidget* popUp) {
    if (!popUp->isEnabled() || !popUp->isVisible())
        qFatal("%s cannot be opened", qPrintable(popUp->objectName()));
    QTest::mouseClick(popUp, Qt::LeftButton);
    const auto isOpen = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; };
    if (!QTest::qWaitFor(isOpen, kWindowPatienceMs))
        qFatal("the menu of %s does not open", qPrintable(popUp->objectName()));
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QAction* itemOf(const QMenu* menu, const QString& title) {
    for (QAction* item : menu->actions())
        if (item->text().replace(QStringLiteral("&&"), QStringLiteral("&")) == title)
            return item;
    qFatal("no item %s", qPrintable(title));
}

void clickItem(QMenu* menu, const QAction* item) {
    const QPoint place = menu->actionGeometry(const_cast<QAction*>(item)).center();
    // It goes by the number of movements where they are small.
    for (int step = kMovements; step-- > 0;)
        QTest::mouseMove(menu->windowHandle(), place + QPoint(step % 2, 0));
    QTest::mouseClick(menu, Qt::LeftButton, {}, place);
}

void clickInMenu(QMenu* menu, const QStringList& titles) {
    for (const QString& title : titles) {
        QAction* item = itemOf(menu, title);
        if (!item->isEnabled())
            qFatal("the item %s cannot be chosen", qPrintable(title));
        QMenu* submenu = item->menu();
        clickItem(menu, item);
        if (!submenu)
            return;
        // The real pointer is elsewhere. If the server reports that while the menu is about to open the
        // submenu, the menu cancels it.
        QElapsedTimer waiting;
        waiting.start();
        while (!QTest::qWaitFor([&] { return submenu->isVisible(); }, kSubmenuPatienceMs)) {
            if (waiting.hasExpired(kWindowPatienceMs))
                qFatal("the submenu %s does not open", qPrintable(title));
            clickItem(menu, item);
        }
        menu = submenu;
    }
}

void choose(QWidget* popUp, const QStringList& titles) {
    clickInMenu(openMenuOf(popUp), titles);
}

void whenSheetIsUp(const QWidget* window, const char* name, std::function<void(QDialog*)> action) {
    auto* timer = new QTimer(const_cast<QWidget*>(window));
    QElapsedTimer waiting;
    waiting.start();
    QObject::connect(timer, &QTimer::timeout, timer, [=, action = std::move(action)] {
        auto* sheet = window->findChild<QDialog*>(QLatin1String(name));
        if (!sheet || !sheet->isVisible() || !sheet->isActiveWindow()) {
            if (waiting.hasExpired(kWindowPatienceMs))
                qFatal("the sheet %s does not come up", name);
            return;
        }
        timer->deleteLater();
        timer->stop();
        action(sheet);
    });
    timer->start(5);
}

void clickInSheet(const QWidget* window, const char* sheet, const char* button) {
    whenSheetIsUp(
        window, sheet, [button](QDialog* dialog) { clickButton(outlet<QAbstractButton>(dialog, button)); });
}

} // namespace quorvi::test
