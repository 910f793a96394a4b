// The actions of the monkey, each at a place that a user can reach.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>

#include "proof/Monkey.h"
#include "support/SliderTools.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/MenuItems.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"
#include "widgets/StepsTimeline.h"

namespace quorvi::test {

namespace {

constexpr std::array kButtons{Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton,
    Qt::BackButton, Qt::ForwardButton, Qt::ExtraButton3};

/// Names that a user types, pastes or lets a tool make.
const std::array kNames{u"", u"Desk", u"Desk 2", u"Game", u"Untitled Profile", u"  ", u" 7", u"a/b&c<d>%1^1",
    u"&&Accel", u"exactly twenty units", u"twenty-one units long", u"äöü ß 日本語 العربية",
    u"line\nbreak\ttab", u"nineteen units, so\U0001F600", u"nineteen units, so\U0001F680", u"\u202Eesrever",
    u"\u0001\u0007", u"\uFFFE", u"<b>bold</b>", u"%d %s %n", u"-5", u"Work 99", u"Work -5",
    u"a name of more than eighty units, which no list shows whole, and which nobody should ever give to it"};

QString describe(const QWidget& widget) {
    const QString name = widget.objectName().isEmpty() && widget.parentWidget()
                             ? widget.parentWidget()->objectName()
                             : widget.objectName();
    return QString::fromLatin1(widget.metaObject()->className()).section(QStringLiteral("::"), -1) + ' ' +
           name;
}

bool isWorthTouching(QWidget* widget) {
    const auto* bar = qobject_cast<QTabBar*>(widget);
    return qobject_cast<QAbstractButton*>(widget) || qobject_cast<PopUpButton*>(widget) ||
           qobject_cast<KyvarQuorviSlider*>(widget) || qobject_cast<QLineEdit*>(widget) ||
           qobject_cast<MouseView*>(widget) || qobject_cast<QAbstractItemView*>(widget) ||
           qobject_cast<StepsTimeline*>(widget) || bar;
}

QList<QWidget*> thingsIn(const QWidget& window) {
    QList<QWidget*> things;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible() || !isWorthTouching(widget))
            continue;
        things << widget;
        // Most of what there is to do is in the lists.
        for (int more = qobject_cast<KyvarQuorviTableView*>(widget) ? 4 : 0; more > 0; --more)
            things << widget;
    }
    return things;
}

} // namespace

QPoint Monkey::somePlaceIn(QWidget& widget) {
    if (const auto* view = qobject_cast<QAbstractItemView*>(&widget); view && view->model() && !oneIn(8)) {
        const int rows = view->model()->rowCount();
        const int columns = view->model()->columnCount();
        if (rows > 0 && columns > 0) {
            const QPoint place = view->visualRect(view->model()->index(below(rows), below(columns))).center();
            return view->viewport()->mapTo(view, place);
        }
    }
    if (const auto* bar = qobject_cast<QTabBar*>(&widget); bar && bar->count() > 0)
        return bar->tabRect(below(bar->count())).center();
    if (const auto* slider = qobject_cast<QSlider*>(&widget); slider && oneIn(2))
        return handleOf(*slider);
    if (const auto* timeline = qobject_cast<StepsTimeline*>(&widget); timeline && !oneIn(4))
        return timeline->viewport()->mapTo(timeline, timeline->edgeOf(below(timeline->stepCount() + 1)));
    if (qobject_cast<QAbstractButton*>(&widget) && !oneIn(5))
        return {8, widget.height() / 2};
    return {below(std::max(1, widget.width())), below(std::max(1, widget.height()))};
}

Qt::KeyboardModifiers Monkey::someModifiers() {
    constexpr std::array modifiers{Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
        Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return oneOf(modifiers);
}

QString Monkey::actAround() {
    World& world = *m_world;
    if (!world.isShown()) {
        world.show();
        return QStringLiteral("show the panel");
    }
    if (!world.panel().pane->hasDevice() || oneIn(4)) {
        const auto count = std::uint16_t(oneIn(3) ? 0 : 1 + below(2));
        world.sendDeviceList(count);
        return QStringLiteral("device list of %1").arg(count);
    }
    switch (below(8)) {
    case 0:
        // A macro is imported wherever the panel for it was opened.
        if (qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
            return QStringLiteral("nothing");
        return QStringLiteral("the file is ") + world.changeFile(m_random);
    case 1:
        world.fillDisk(1 + below(3));
        return QStringLiteral("fill the disk");
    case 2:
        return hideAndCheck();
    case 3:
    case 4:
        world.activateOtherWindow();
        return QStringLiteral("another window");
    case 5:
        world.panel().window->resize(600 + below(600), 400 + below(500));
        return QStringLiteral("resize");
    default:
        world.activatePanel();
        return QStringLiteral("activate the panel");
    }
}

QString Monkey::actInMenu(QMenu& menu) {
    const QList<QAction*> items = menu.actions();
    switch (below(10)) {
    case 0: {
        constexpr std::array keys{Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right, Qt::Key_Return,
            Qt::Key_Escape, Qt::Key_End};
        const Qt::Key wanted = oneOf(keys);
        for (const Key& key : allKeys())
            if (key.key == wanted)
                m_hands.tap(key);
        return QStringLiteral("key %1 in a menu").arg(int(wanted), 0, 16);
    }
    case 1:
        m_hands.click(*m_world->panel().window, {below(900), below(700)});
        return QStringLiteral("click beside a menu");
    case 2:
        return pressSomeKey();
    default:
        break;
    }
    if (items.isEmpty()) {
        menu.close();
        return QStringLiteral("close an empty menu");
    }
    QList<QAction*> groups;
    std::copy_if(items.begin(), items.end(), std::back_inserter(groups),
        [](const QAction* item) { return item->menu() != nullptr; });
    // Macros and profiles are in menus within menus, which few would find by chance.
    QAction* item = groups.isEmpty() || oneIn(2) ? items.at(below(int(items.size()))) : oneOf(groups);
    const QPoint place = menu.actionGeometry(item).center();
    m_hands.moveTo(menu, place);
    m_hands.click(menu, place);
    return QStringLiteral("item %1").arg(item->text());
}

QString Monkey::actInFilePanel(QFileDialog& panel) {
    auto* field = panel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* buttons = panel.findChild<QDialogButtonBox*>();
    if (!field || !buttons)
        qFatal("a file panel without a field for the name or without buttons");
    if (QWidget* question = QApplication::activeModalWidget(); question != &panel) {
        m_hands.tap(oneIn(2) ? handkeys::enter : handkeys::escape); // an old file is to be replaced
        return QStringLiteral("answer ") + describe(*question);
    }
    if (oneIn(3)) {
        panel.reject();
        return QStringLiteral("cancel a file panel");
    }
    const bool saves = panel.acceptMode() == QFileDialog::AcceptSave;
    const QString suffix =
        panel.defaultSuffix().isEmpty() ? QStringLiteral("desktop") : panel.defaultSuffix();
    const QString path =
        saves ? m_world->exportTarget(suffix, m_random) : m_world->someFile(suffix, m_random);
    m_mayDangle = m_mayDangle || (!saves && suffix == QLatin1String("quorviProfile"));
    if (!saves && suffix == QLatin1String("quorviSettings"))
        m_world->allowReplacing();
    field->setText(path);
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_hands.click(*button, {8, button->height() / 2});
    return QStringLiteral("choose the file ") + path.section('/', -1);
}

QString Monkey::actWhileRecording() {
    if (!oneIn(3))
        return pressSomeKey();
    if (auto* table = m_world->panel().find<KyvarQuorviTableView>("quorviTableSteps"); table->isVisible()) {
        const Qt::MouseButton button = oneOf(kButtons);
        const QPoint place = somePlaceIn(*table);
        m_hands.press(*table, place, button);
        if (oneIn(3))
            m_hands.moveTo(*table, somePlaceIn(*table));
        m_hands.release(*table, place, button);
        return QStringLiteral("button %1 while recording").arg(int(button));
    }
    return pressSomeKey();
}

QString Monkey::pressSomeKey() {
    const Key key = oneOf(allKeys());
    const QString name = QStringLiteral("key %1").arg(key.scanCode);
    if (oneIn(12)) {
        m_hands.down(key);
        return name + QStringLiteral(" down");
    }
    m_hands.tap(key, someModifiers());
    if (oneIn(6))
        m_hands.letGo(*m_world->panel().window);
    return name;
}

QString Monkey::finishEdit() {
    constexpr std::array ends{
        handkeys::enter, handkeys::enter, handkeys::escape, handkeys::tab, handkeys::end};
    const QString name = QString::fromUtf16(oneOf(kNames));
    if (oneIn(2))
        m_hands.tap(allKeys()[22], Qt::ControlModifier); // select all
    Hands::type(name);
    m_hands.tap(oneOf(ends));
    return QStringLiteral("type ") + name;
}

QString Monkey::actInWindow(QWidget& window) {
    if (qobject_cast<QLineEdit*>(QApplication::focusWidget()) && oneIn(2))
        return finishEdit();
    if (oneIn(8))
        return pressSomeKey();
    if (window.window() != m_world->panel().window.get() && oneIn(8)) {
        m_hands.tap(oneIn(2) ? handkeys::escape : handkeys::enter);
        return QStringLiteral("answer ") + describe(window);
    }
    const QList<QWidget*> things = thingsIn(window);
    return things.isEmpty() ? pressSomeKey() : actOn(*things.at(below(int(things.size()))));
}

QString Monkey::actOn(QWidget& widget) {
    auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
    QWidget* const target = area ? area->viewport() : &widget;
    const auto placeIn = [&] { return widget.mapTo(target->window(), somePlaceIn(widget)); };
    const QWidget& window = *target->window();
    const QPoint place = placeIn();
    const QString name = describe(widget);
    switch (below(12)) {
    case 0:
        m_hands.click(window, place, Qt::RightButton);
        return name + QStringLiteral(": right click");
    case 1:
    case 2:
        m_hands.click(window, place);
        m_hands.click(window, place);
        return name + QStringLiteral(": double click");
    case 3:
        m_hands.press(window, place);
        m_hands.moveTo(window, placeIn());
        m_hands.moveTo(window, placeIn());
        if (!oneIn(6)) // sometimes the button stays down for what comes next
            m_hands.release(window, placeIn());
        return name + QStringLiteral(": drag");
    case 4:
        m_hands.wheel(window, place, oneIn(2) ? 120 : -240);
        return name + QStringLiteral(": wheel");
    case 5:
        widget.setFocus(Qt::TabFocusReason);
        return name + QStringLiteral(": ") + pressSomeKey();
    case 6:
        m_hands.click(window, place, oneOf(kButtons));
        return name + QStringLiteral(": some button");
    default:
        if (m_hands.held())
            m_hands.letGo(window);
        m_hands.click(window, place);
        return name + QStringLiteral(": click");
    }
}

} // namespace quorvi::test
