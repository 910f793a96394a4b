#include "widgets/MenuItems.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include <algorithm>

#include "widgets/ShownText.h"

namespace quorvi {

namespace {

constexpr const char* kTagProperty = "tag";
/// The full title of an item that shows another text.
constexpr const char* kWholeTitleProperty = "wholeTitle";

void copyProperties(const QObject& from, QObject& to) {
    to.setObjectName(from.objectName());
    for (const QByteArray& name : from.dynamicPropertyNames())
        to.setProperty(name.constData(), from.property(name.constData()));
}

void copyContent(const QMenu& from, QMenu& to) {
    copyProperties(from, to);
    if (from.testAttribute(Qt::WA_SetLayoutDirection))
        to.setLayoutDirection(from.layoutDirection());
    for (const QAction* item : from.actions()) {
        QAction* copy = nullptr;
        if (const QMenu* submenu = item->menu()) {
            QMenu* submenuCopy = to.addMenu(item->text());
            copyContent(*submenu, *submenuCopy);
            copy = submenuCopy->menuAction();
        } else {
            copy = to.addAction(item->text());
            copy->setSeparator(item->isSeparator());
        }
        copyProperties(*item, *copy);
        copy->setEnabled(item->isEnabled());
        copy->setVisible(item->isVisible());
    }
}

void appendSelectableItems(const QMenu& menu, QList<QAction*>& items) {
    for (QAction* item : menu.actions()) {
        if (isItemGroup(*item))
            appendSelectableItems(*item->menu(), items);
        else if (!item->isSeparator())
            items.append(item);
    }
}

} // namespace

std::optional<int> tagOfItem(const QAction& item) {
    const QVariant tag = item.property(kTagProperty);
    return tag.isValid() ? std::optional(tag.toInt()) : std::nullopt;
}

void setTagOfItem(QAction& item, int tag) {
    item.setProperty(kTagProperty, tag);
}

QString titleOfItem(const QAction& item) {
    const QVariant whole = item.property(kWholeTitleProperty);
    return whole.isValid() ? whole.toString() : shownTitleOfItem(item);
}

QString shownTitleOfItem(const QAction& item) {
    const QString text = item.text();
    QString title;
    title.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        title.append(text.at(i));
    }
    return title;
}

QString shownTitle(const QString& title) {
    QString shown = shownText(withoutDirection(title));
    // The text after a tab would appear in the place of the shortcut.
    for (QChar& character : shown)
        if (!character.isPrint() && !character.isSurrogate() && !isolatesName(character))
            character = QLatin1Char(' ');
    return inItsDirection(shown);
}

void setTitleOfItem(QAction& item, const QString& title) {
    QString text = shownTitle(title);
    item.setProperty(kWholeTitleProperty, text == title ? QVariant() : QVariant(title));
    item.setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
}

bool isItemGroup(const QAction& item) {
    return item.menu() != nullptr && !tagOfItem(item);
}

QAction* itemWithTag(const QMenu& menu, int tag) {
    const int index = indexOfItemWithTag(menu, tag);
    return index < 0 ? nullptr : menu.actions().at(index);
}

int indexOfItemWithTag(const QMenu& menu, int tag) {
    const QList<QAction*> items = menu.actions();
    for (int i = 0; i < int(items.size()); ++i) {
        if (tagOfItem(*items.at(i)) == tag)
            return i;
    }
    return -1;
}

QList<QAction*> selectableItems(const QMenu& menu) {
    QList<QAction*> items;
    appendSelectableItems(menu, items);
    return items;
}

QAction* selectableItemWithTag(const QMenu& menu, int tag) {
    if (QAction* item = itemWithTag(menu, tag))
        return item;
    for (QAction* item : selectableItems(menu)) {
        if (tagOfItem(*item) == tag)
            return item;
    }
    return nullptr;
}

void markItem(QAction& item, bool marked) {
    item.setCheckable(marked);
    item.setChecked(marked);
}

QPoint positionOfMenu(const QMenu& menu, const QWidget& widget, const QRect& rectangle) {
    const QSize size = menu.sizeHint();
    const QRect available = widget.screen()->availableGeometry();
    const bool rightToLeft = widget.layoutDirection() == Qt::RightToLeft;
    const int left = rightToLeft
                         ? rectangle.left() + rectangle.width() - qMax(rectangle.width(), size.width())
                         : rectangle.left();
    const QPoint below = widget.mapToGlobal(QPoint(left, rectangle.top() + rectangle.height()));
    const QPoint above = widget.mapToGlobal(QPoint(left, rectangle.top() - size.height()));
    const bool fitsBelow = below.y() + size.height() <= available.bottom() + 1;
    return fitsBelow || above.y() < available.top() ? below : above;
}

bool keyOpensMenu(int key) {
    return key == Qt::Key_Space || key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_F4;
}

bool keyOpensContextMenu(const QKeyEvent& event) {
    return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
}

void closeWhenChosen(QMenu& menu) {
    QObject::connect(&menu, &QMenu::triggered, &menu, &QMenu::hide);
}

void activateFirstItem(QMenu& menu) {
    const auto items = menu.actions();
    const auto first = std::find_if(items.begin(), items.end(),
        [](const QAction* item) { return item->isVisible() && item->isEnabled() && !item->isSeparator(); });
    if (first == items.end())
        return;
    if (!(*first)->menu())
        return menu.setActiveAction(*first);
    // setActiveAction() would open its submenu at once.
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&menu, &down);
}

std::unique_ptr<QMenu> copyOfMenu(const QMenu& menu) {
    auto copy = std::make_unique<QMenu>();
    copyContent(menu, *copy);
    return copy;
}

} // namespace quorvi
