#include "proof/ControlMoves.h"

#include <QAbstractButton>
#include <QTest>

#include "model/Limits.h"
#include "pane/ListTools.h"
#include "widgets/PopUpButton.h"
#include "widgets/StepsTimeline.h"

namespace quorvi::test {

namespace {

using Panel = SensitivityFixture;

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";
constexpr const char* kSteps = "quorviTableSteps";

/// Whatever the function of input 1, it takes the primary click when no other input has it.
const QString kClick = QStringLiteral("profiles/#/buttons/01/command");

bool canUse(const Panel& panel, const char* control) {
    return panel.isEnabled(control) && panel.find<QWidget>(control)->isVisible();
}

void clickTwice(Panel& panel, const char* control) {
    for (int time = 0; time < 2; ++time)
        if (canUse(panel, control))
            panel.click(control);
}

ControlMove box(const char* control, int tab, const QStringList& mayChange) {
    return {QLatin1String(control), tab, mayChange, [control](Panel& p) { clickTwice(p, control); }};
}

ControlMove slider(const char* control, const QStringList& mayChange) {
    return {QLatin1String(control), 1, mayChange, [control](Panel& panel) {
                for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left})
                    if (canUse(panel, control))
                        panel.press(control, key);
            }};
}

void chooseAndGoBack(Panel& panel, const char* popUpName, int tag) {
    auto* popUp = panel.find<PopUpButton>(popUpName);
    const int before = popUp->selectedTag();
    for (const int wanted : {tag, before == 49 ? 0 : before}) // choosing a key asks for one
        if (QAction* item = popUp->itemWithTag(wanted); item && popUp->isEnabled() && !item->menu())
            item->trigger();
}

ControlMove assignment(int input) {
    constexpr int back = 5;
    const QString name = QStringLiteral("quorviMenuTop%1").arg(input);
    return {name, 0, {QStringLiteral("profiles/#/buttons/0%1").arg(input), kClick},
        [name](Panel& panel) { chooseAndGoBack(panel, qPrintable(name), back); }};
}

void changeStages(Panel& panel) {
    if (!canUse(panel, "quorviButtonEditStages"))
        return;
    inStagesSheet(panel, [&](QDialog* sheet) {
        if (panel.isEnabled("quorviStageSliderX"))
            panel.press("quorviStageSliderX", Qt::Key_Right);
        endSheet(sheet, true);
    });
}

void selectRows(Panel& panel, const char* table, std::initializer_list<int> rows) {
    for (const int row : rows)
        if (row < panel.find<KyvarQuorviTableView>(table)->model()->rowCount())
            panel.selectRow(table, row);
    QCoreApplication::processEvents();
}

/// Edits the cell of the name without a display's input method, as typing does.
void rename(Panel& panel, const char* table, int row, int column) {
    auto* view = panel.find<KyvarQuorviTableView>(table);
    if (row >= view->model()->rowCount() || !view->isEnabled())
        return;
    view->editCell(column, row);
    auto* editor = cellEditor(panel, table);
    if (!editor)
        return;
    editor->setText(QStringLiteral("Renamed"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents();
}

void toggleAutoSwitch(Panel& panel) {
    for (int time = 0; time < 2; ++time)
        QTest::keyClick(panel.find<QWidget>(kProfiles), Qt::Key_Space);
}

void addAndRemove(Panel& panel, const char* table, const char* add, const char* remove) {
    if (!canUse(panel, add))
        return;
    panel.click(add);
    if (auto* editor = cellEditor(panel, table))
        QTest::keyClick(editor, Qt::Key_Escape);
    QCoreApplication::processEvents();
    if (!canUse(panel, remove))
        return;
    clickInSheet(panel.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
    panel.click(remove);
}

void restoreDefaults(Panel& panel) {
    if (!canUse(panel, "quorviButtonRestoreDefaults"))
        return;
    clickInSheet(panel.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
    panel.click("quorviButtonRestoreDefaults");
}

void changeDelay(Panel& panel) {
    constexpr int column = 1;
    selectRows(panel, kMacros, {0});
    auto* model = panel.find<KyvarQuorviTableView>(kSteps)->model();
    if (model->rowCount() == 0)
        return;
    const QModelIndex cell = model->index(0, column);
    const QVariant before = cell.data(Qt::EditRole);
    model->setData(cell, 3, Qt::EditRole);
    model->setData(model->index(0, column), before, Qt::EditRole);
}

/// A longer delay and one that is none, of the first step of the drawing.
void dragDelay(Panel& panel) {
    selectRows(panel, kMacros, {0});
    auto* timeline = panel.find<StepsTimeline>("quorviTimelineSteps");
    if (!timeline->isVisible() || timeline->stepCount() < 2)
        return;
    for (const int moved : {60, -2000}) {
        const QPoint edge = timeline->edgeOf(1);
        QTest::mousePress(timeline->viewport(), Qt::LeftButton, {}, edge);
        QMouseEvent move(QEvent::MouseMove, edge + QPoint(moved, 0),
            timeline->viewport()->mapToGlobal(edge + QPoint(moved, 0)), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(timeline->viewport(), &move);
        QTest::mouseRelease(timeline->viewport(), Qt::LeftButton, {}, edge);
    }
}

void recordClick(Panel& panel) {
    selectRows(panel, kMacros, {0});
    if (!canUse(panel, "quorviButtonStepRecord"))
        return;
    panel.click("quorviButtonStepRecord");
    QTest::mouseClick(panel.find<KyvarQuorviTableView>(kSteps)->viewport(), Qt::LeftButton, {}, {20, 60});
    panel.click("quorviButtonStepRecord");
}

void removeStep(Panel& panel) {
    selectRows(panel, kMacros, {0});
    panel.find<KyvarQuorviTableView>(kSteps)->selectRowAlone(0);
    if (canUse(panel, "quorviButtonStepRemove"))
        panel.click("quorviButtonStepRemove");
}

std::vector<ControlMove> allMoves() {
    const QStringList x{
        "settings/dpix", "settings/dpiy", "profiles/#/stages/@/dpix", "profiles/#/stages/@/dpiy"};
    const QStringList switching{"settings/profileid", "settings/stage", "settings/dpix", "settings/dpiy",
        "settings/independentxy", "profiles/*/buttons/01/command"};
    // Names are edited, and profiles and macros removed, with a look for assignments that lead nowhere.
    const QStringList lists = switching + QStringList{"profiles/*/buttons/*"};
    std::vector<ControlMove> moves;
    for (int input = 1; input <= limits::buttons; ++input)
        moves.push_back(assignment(input));
    moves.push_back(slider("quorviSliderSensitivityX", x));
    moves.push_back(box("quorviBoxIndependentXY", 1,
        {"settings/independentxy", "settings/dpiy", "profiles/#/stages/@/independentxy",
            "profiles/#/stages/@/dpiy"}));
    moves.push_back(slider("quorviSliderSensitivityY", {"settings/dpiy", "profiles/#/stages/@/dpiy"}));
    moves.push_back(box("quorviBoxAcceleration", 1, {"profiles/#/driver/enableaccel"}));
    moves.push_back(slider("quorviSliderAcceleration", {"profiles/#/driver/acceleration"}));
    moves.push_back(box("quorviBoxSensitivityOSD", 1, {"profiles/#/driver/sensitivityosd"}));
    moves.push_back({"quorviButtonEditStages", 1,
        switching + QStringList{"profiles/#/stages", "profiles/#/defaultstage"}, changeStages});
    moves.push_back({"automatic switching", 2, {"profiles/#/driver/autoswitch"}, toggleAutoSwitch});
    moves.push_back(box("quorviBoxProfileOSD", 2, {"profiles/#/driver/profileosd"}));
    moves.push_back({kProfiles, 2, switching, [](Panel& p) { selectRows(p, kProfiles, {1, 0}); }});
    moves.push_back({"name of a profile", 2, lists + QStringList{"profiles/1/name"},
        [](Panel& p) { rename(p, kProfiles, 1, 1); }});
    moves.push_back({"quorviButtonProfileAdd and Remove", 2, lists + QStringList{"profiles"},
        [](Panel& p) { addAndRemove(p, kProfiles, "quorviButtonProfileAdd", "quorviButtonProfileRemove"); }});
    moves.push_back({kMacros, 3, {}, [](Panel& p) { selectRows(p, kMacros, {0, 1}); }});
    moves.push_back({"delay of a step", 3, {"macros/0/steps/0/delay"}, changeDelay});
    moves.push_back({"quorviTimelineSteps", 3, {"macros/0/steps/0/delay"}, dragDelay});
    moves.push_back({"quorviButtonStepRecord", 3, {"macros/0/steps"}, recordClick});
    moves.push_back({"quorviButtonStepRemove", 3, {"macros/0/steps"}, removeStep});
    moves.push_back({"name of a macro", 3, lists + QStringList{"macros/0/name"},
        [](Panel& p) { rename(p, kMacros, 0, 0); }});
    moves.push_back({"quorviButtonMacroAdd and Remove", 3, lists + QStringList{"macros"},
        [](Panel& p) { addAndRemove(p, kMacros, "quorviButtonMacroAdd", "quorviButtonMacroRemove"); }});
    moves.push_back({"quorviMenuPollingRate", 4, {"settings/pollingrate"}, [](Panel& p) {
                         chooseAndGoBack(p, "quorviMenuPollingRate", 125);
                         chooseAndGoBack(p, "quorviMenuPollingRate", 1000);
                     }});
    moves.push_back(box("quorviBoxLightOnWheel", 4, {"profiles/#/ledstate"}));
    moves.push_back(box("quorviBoxLightOnBattery", 4, {"profiles/#/ledstate"}));
    moves.push_back(box("quorviButtonCheckForUpdates", 4, {}));
    moves.push_back(box("quorviButtonHelp", 4, {}));
    moves.push_back({"quorviButtonRestoreDefaults", 4,
        {"settings", "profiles/#/ledstate", "profiles/#/defaultstage", "profiles/#/stages",
            "profiles/#/buttons", "profiles/#/driver/profileosd", "profiles/#/driver/sensitivityosd",
            "profiles/#/driver/enableaccel", "profiles/#/driver/acceleration"},
        restoreDefaults});
    for (ControlMove& move : moves)
        move.mayChange << kClick;
    return moves;
}

} // namespace

const std::vector<ControlMove>& controlMoves() {
    static const std::vector<ControlMove> moves = allMoves();
    return moves;
}

} // namespace quorvi::test
