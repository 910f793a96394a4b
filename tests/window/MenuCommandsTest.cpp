// The commands of the lists' menus: their availability, names and saving.
#include "window/MenuCommands.h"

#include <QAction>

#include <memory>

#include "document/Document.h"
#include "widgets/MenuItems.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr int kPossible = 1;
constexpr int kImpossible = 2;
constexpr int kNamed = 3;
constexpr int kNobodys = 4;

struct Commands final : DocumentOwner {
    Commands() {
        document.setHasDevice(true);
        commands->add({{kPossible, [this] { performed.push_back(kPossible); }, [] { return true; }},
            {kImpossible, [this] { performed.push_back(kImpossible); }, [] { return false; }}});
        commands->add({{kNamed, [this] { performed.push_back(kNamed); }, [] { return true; },
            [this] { return title; }, true}});
    }
    void showDocument(Shown /*shown*/) override {}
    void saveDocument() override {}
    void saveDocumentLater() override {}

    [[nodiscard]] bool validate(int tag) {
        setTagOfItem(item, tag);
        return commands->validate(&item);
    }

    QAction item;
    QString title = QStringLiteral("Begin");
    std::vector<int> performed; ///< by their tags
    Document document{*this};
    std::unique_ptr<MenuCommands> commands = std::make_unique<MenuCommands>(document);
};

} // namespace

class MenuCommandsTest : public QObject {
    Q_OBJECT

  private slots:
    void aCommandCanBeChosenWhileItIsPossible() {
        Commands menu;
        QVERIFY(menu.validate(kPossible));
        QVERIFY(!menu.validate(kImpossible));
    }

    void anItemOfNoCommandCanBeChosenWithAMouse() {
        Commands menu;
        QVERIFY(menu.validate(kNobodys));
        QVERIFY(!menu.commands->validate(nullptr));
    }

    void withoutAMouseNothingCanBeChosen() {
        Commands menu;
        menu.document.setHasDevice(false);
        QVERIFY(!menu.validate(kPossible));
        QVERIFY(!menu.validate(kNobodys));
    }

    void anItemGetsTheNameThatItsCommandHasNow() {
        Commands menu;
        QVERIFY(menu.validate(kNamed));
        QCOMPARE(titleOfItem(menu.item), QStringLiteral("Begin"));
        menu.title = QStringLiteral("End");
        QVERIFY(menu.validate(kNamed));
        QCOMPARE(titleOfItem(menu.item), QStringLiteral("End"));
        QVERIFY(menu.validate(kPossible));
        QCOMPARE(titleOfItem(menu.item), QStringLiteral("End")); // this one has no name to give
    }

    void theCommandOfTheTagIsPerformed() {
        Commands menu;
        static_cast<void>(menu.commands->perform(kNamed));
        static_cast<void>(menu.commands->perform(kImpossible));
        static_cast<void>(menu.commands->perform(kNobodys));
        QCOMPARE(menu.performed, std::vector<int>({kNamed, kImpossible}));
    }

    void whatIsOverOnlyLaterIsNotSavedNow() {
        Commands menu;
        QVERIFY(menu.commands->perform(kPossible));
        QVERIFY(menu.commands->perform(kNobodys));
        QVERIFY(!menu.commands->perform(kNamed));
    }

    void aCommandMayOutliveTheCommands() {
        Commands menu;
        bool isOver = false;
        menu.commands->add({{kNobodys,
            [&menu, &isOver, kept = std::make_shared<int>(0)] {
                const std::weak_ptr<int> watched = kept;
                menu.commands.reset();
                isOver = !watched.expired(); // what the command holds is there to its end
            },
            [] { return true; }}});
        QVERIFY(menu.commands->perform(kNobodys));
        QVERIFY(isOver);
    }
};

QUORVI_WIDGET_TEST_MAIN(MenuCommandsTest)
#include "MenuCommandsTest.moc"
