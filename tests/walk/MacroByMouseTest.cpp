// What a new user wants of a macro, from an empty list to the macro that works: record "hi", mend a wrong
// step, insert a key in the middle, exchange two, set a delay of 75 ms, and try it. Everything is done with
// the mouse, in few clicks, except the keys of the macro and the number.

#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WaitUntil.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kMostClicks = 14;
const QString kSteps = QStringLiteral("table 'Steps of the macro'");
const QString kTrial = QStringLiteral("text 'Try the macro'");
enum Column : int { kAction, kDelay };

/// Counts what the user's finger does: a double click is two clicks, a drag one.
class Mouse {
  public:
    [[nodiscard]] int clicks() const { return m_clicks; }

    /// As a hand, in more than one movement: Qt 5 ignores the one that comes into a menu.
    void moveTo(QPoint spot) const {
        for (const int x : {spot.x() - 1, spot.x()})
            run({"mousemove", QString::number(x), QString::number(spot.y())});
    }
    void click(QPoint spot, int button = 1) {
        moveTo(spot);
        ++m_clicks;
        run({"click", QString::number(button)});
    }
    void doubleClick(QPoint spot) {
        moveTo(spot);
        m_clicks += 2;
        run({"click", "--repeat", "2", "--delay", "50", "1"});
    }
    void drag(QPoint from, QPoint to) {
        moveTo(from);
        ++m_clicks;
        run({"mousedown", "1"});
        moveTo((from + to) / 2);
        moveTo(to);
        run({"mouseup", "1"});
    }

  private:
    static void run(const QStringList& words) {
        std::vector<std::string> arguments;
        for (const QString& word : words)
            arguments.push_back(word.toStdString());
        if (!xdotool(std::move(arguments)))
            qFatal("the mouse does not %s", qPrintable(words.join(QLatin1Char(' '))));
    }

    int m_clicks = 0;
};

QPoint centreOf(const Accessible& thing) {
    const Extents place = thing.extents();
    return {place.left + place.width / 2, place.top + place.height / 2};
}

bool isOnScreen(const Accessible& thing) {
    const Extents place = thing.extents();
    return thing.is(AccessibleState::showing) && place.width > 0 && place.height > 0;
}

/// The item of the menu, or of one that it opens, that is called so and is on the screen.
Accessible itemIn(const Accessible& menu, const std::string& title) {
    for (const Accessible& thing : everythingIn(menu))
        if (thing.role() == "menu item" && thing.name() == title && isOnScreen(thing))
            return thing;
    return {};
}

} // namespace

class MacroByMouseTest : public QObject {
    Q_OBJECT

    static QStringList shownSteps(const Walk& walk) {
        const Accessible table = walk.thing(kSteps);
        QStringList steps;
        for (int row = 0; row < table.rows(); ++row)
            steps << QString::fromStdString(table.cell(row, kAction).name());
        return steps;
    }
    static std::string firstDelay(const Walk& walk) { return walk.thing(kSteps).cell(0, kDelay).name(); }
    static QPoint cell(const Walk& walk, int row) { return centreOf(walk.thing(kSteps).cell(row, kAction)); }
    void click(const Walk& walk, const QString& control) { m_mouse.click(centreOf(walk.thing(control))); }
    static void typeKeys(const QStringList& keys) {
        for (const QString& key : keys)
            QVERIFY(xdotool({"key", key.toStdString()}));
    }

    /// Clicks with the right button on a step and goes into the menu that opens there.
    void openMenuOf(Walk& walk, int row) {
        const QPoint spot = cell(walk, row);
        m_mouse.click(spot, 3);
        // Readers hear of a menu by the item that the pointer is on. Without room below it opens above.
        constexpr int kIntoMenu = 12;
        int side = 1;
        QVERIFY(waitUntil([&] {
            m_mouse.moveTo(spot + QPoint(kIntoMenu, side * kIntoMenu));
            side = -side;
            return walk.reader().focus().role() == "menu item";
        }));
        m_menu = walk.reader().focus().parent();
    }
    /// Goes to the submenu and clicks its item. The pointer goes along the submenu's own line first.
    void choose(const std::string& submenu, const std::string& title) {
        m_mouse.moveTo(centreOf(itemIn(m_menu, submenu)));
        Accessible item;
        QVERIFY(waitUntil([&] { return !(item = itemIn(m_menu, title)).isNull(); }));
        m_mouse.moveTo({centreOf(item).x(), centreOf(itemIn(m_menu, submenu)).y()});
        m_mouse.click(centreOf(item));
    }

    Mouse m_mouse;
    Accessible m_menu; ///< that was opened last

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void recordedMendedReorderedAndTriedInFewClicks() {
        Walk walk;
        click(walk, "page tab 'Macros'");
        click(walk, "push button 'Add macro'");
        QVERIFY(!walk.thing("text 'Macro'").isNull());
        click(walk, "check box 'Record'");
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"h", "j"});
        QTRY_COMPARE(shownSteps(walk), QStringList({"Press h", "Release h", "Press j", "Release j"}));
        click(walk, "check box 'Stop'");
        QVERIFY(!walk.thing("check box 'Record'").isNull());

        m_mouse.doubleClick(cell(walk, 2)); // the wrong one, which is recorded again
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"i"});
        QTRY_COMPARE(shownSteps(walk), QStringList({"Press h", "Release h", "Press i", "Release i"}));
        QVERIFY(!walk.thing("check box 'Record'").isNull());

        openMenuOf(walk, 1);
        choose("Insert After", "Record Here");
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"o"});
        QTRY_COMPARE(shownSteps(walk),
            QStringList({"Press h", "Release h", "Press o", "Release o", "Press i", "Release i"}));
        click(walk, "check box 'Stop'");
        QVERIFY(!walk.thing("check box 'Record'").isNull());

        // The release goes along.
        const Extents before = walk.thing(kSteps).cell(2, kAction).extents();
        m_mouse.drag(cell(walk, 4), {before.left + before.width / 2, before.top + before.height / 4});
        QTRY_COMPARE(shownSteps(walk),
            QStringList({"Press h", "Release h", "Press i", "Release i", "Press o", "Release o"}));

        m_mouse.click(cell(walk, 0)); // the digits are typed over the selected step's delay
        QTRY_COMPARE(walk.thing(kSteps).selectedRows(), std::vector{0});
        typeKeys({"7", "5", "Return"});
        QTRY_COMPARE(firstDelay(walk), std::string("75 ms"));

        click(walk, "check box 'Play'");
        QVERIFY(waitUntil([&] { return walk.thing(kTrial).text() == "hio"; }));
        qInfo("%d clicks", m_mouse.clicks());
        QVERIFY(m_mouse.clicks() <= kMostClicks);
    }
};

QUORVI_SESSION_TEST_MAIN(MacroByMouseTest)
#include "MacroByMouseTest.moc"
