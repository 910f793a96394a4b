// Ten thousand actions of every kind in the real panel, with undo, redo, device lists and a second writer in
// between: after any number of undos the settings are, byte for byte, the same as before that many actions.
// They are in the file, and the helper is notified.

#include <QAbstractButton>
#include <QDialog>
#include <QSlider>
#include <QTimer>

#include <random>

#include "model/Commands.h"
#include "pane/AssignmentFixture.h"
#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "proof/UndoWitness.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kActions = 10'000;

class ChancePanel : public AssignmentFixture {
  public:
    explicit ChancePanel(std::uint32_t seed) : m_random(seed) { open(); }

    /// One action by chance, or what comes between; its name.
    QString go() {
        putInOrder();
        switch (below(12)) {
        case 0:
        case 1:
            return undo();
        case 2:
            return redo();
        case 3:
            return below(20) == 0 ? undoMany() : comeBetween();
        default:
            return act();
        }
    }

    /// What is wrong; empty when nothing is.
    QString fault;

  private:
    using Action = QString (ChancePanel::*)();

    std::uint32_t below(std::size_t count) { return std::uint32_t(m_random() % count); }
    [[nodiscard]] plist::Dictionary tree() const { return pane->deviceConfig(); }

    QString act() {
        static constexpr std::array kKinds{&ChancePanel::clickBox, &ChancePanel::chooseFunction,
            &ChancePanel::chooseFromList, &ChancePanel::choosePollingRate, &ChancePanel::moveSlider,
            &ChancePanel::dragSlider, &ChancePanel::addProfile, &ChancePanel::removeProfile,
            &ChancePanel::selectProfile, &ChancePanel::rename, &ChancePanel::addMacro,
            &ChancePanel::removeMacro, &ChancePanel::selectMacro, &ChancePanel::record,
            &ChancePanel::commandForSteps, &ChancePanel::changeDelay, &ChancePanel::changeStages,
            &ChancePanel::restoreDefaults, &ChancePanel::switchAutomatically};
        return act(kKinds[below(kKinds.size())]);
    }

    QString act(Action action) {
        m_witness.beginAction(tree());
        const QString name = (this->*action)();
        for (const char* table : {"quorviTableProfiles", "quorviTableMacros"})
            find<KyvarQuorviTableView>(table)->abortEditing();
        m_witness.noteAction(tree());
        if (isEnabled("quorviButtonUndo") != m_witness.canUndo())
            fault = "undo is not offered, or should not be: " +
                    find<QAbstractButton>("quorviButtonUndo")->toolTip();
        return name;
    }

    QString undo() { return take(true); }
    QString redo() { return take(false); }

    QString take(bool back) {
        const bool can = back ? m_witness.canUndo() : m_witness.canRedo();
        std::string expected = UndoWitness::bytesOf(tree());
        if (can)
            expected = back ? m_witness.undo(tree()) : m_witness.redo(tree());
        const QString tip = find<QAbstractButton>(back ? "quorviButtonUndo" : "quorviButtonRedo")->toolTip();
        if (back)
            pane->actionButtonUndo();
        else
            pane->actionButtonRedo();
        if (UndoWitness::bytesOf(tree()) != expected)
            fault = tip + " leads elsewhere";
        else if (can && UndoWitness::bytesOf(savedSettings()) != expected)
            fault = "the file has not followed";
        return back ? "undo" : "redo";
    }

    QString undoMany() {
        for (int time = 0; time < 110 && fault.isEmpty(); ++time)
            take(true);
        return "undo all";
    }

    /// Some actions leave what is repaired when the settings are read afresh: a sensitivity in force that is
    /// not that of the current stage, or separate axes that are equal. It is done now, and not while the next
    /// action waits for an answer.
    void putInOrder() { pane->syncUIWithDeviceConfig(); }

    QString comeBetween() {
        if (below(2) == 0) {
            connectDevices(1);
            return "device list";
        }
        // Another program changes what the user does not, in settings that are saved and need no repair.
        const auto firmware = std::int32_t(below(1000));
        const plist::Dictionary theirs = savedSettings();
        theirs.set("firmware", firmware);
        writeSettings(theirs);
        if (!QTest::qWaitFor([&] { return tree().integer("firmware") == firmware; }, kWindowPatienceMs))
            fault = "the other program's change is not followed";
        m_witness.othersSet("firmware", firmware);
        return "other writer";
    }

    QString clickBox() {
        static constexpr std::array kBoxes{"quorviBoxLightOnWheel", "quorviBoxLightOnBattery",
            "quorviBoxIndependentXY", "quorviBoxAcceleration", "quorviBoxSensitivityOSD",
            "quorviBoxProfileOSD"};
        const char* name = kBoxes[below(kBoxes.size())];
        find<QAbstractButton>(name)->click();
        return name;
    }

    QString chooseFunction() {
        const auto commands = commandTable();
        const Command& command = commands[below(commands.size())];
        auto* input = popUp(1 + int(below(limits::buttons)));
        QAction* item = input->itemWithTag(command.code);
        if (item && !item->menu() && input->isEnabled() && command.code != 49) // which asks for a key
            item->trigger();
        return "function";
    }

    QString chooseFromList() {
        auto* menu = list(1 + int(below(limits::buttons)), below(2) == 0 ? 65 : 34);
        const auto items = menu->actions();
        QAction* item = items.at(int(below(std::size_t(items.size()))));
        if (!item->isSeparator() && item->property(kRepresentedObject).isValid())
            item->trigger();
        return "list";
    }

    QString choosePollingRate() {
        auto* rates = find<PopUpButton>("quorviMenuPollingRate");
        if (QAction* item = rates->itemWithTag(std::array{125, 250, 500, 1000}[below(4)]))
            item->trigger();
        return "polling rate";
    }

    QSlider& someSlider() {
        static constexpr std::array kSliders{
            "quorviSliderSensitivityX", "quorviSliderSensitivityY", "quorviSliderAcceleration"};
        return *find<QSlider>(kSliders[below(kSliders.size())]);
    }
    static void step(QSlider& slider, bool up) {
        if (slider.isEnabled())
            slider.triggerAction(
                up ? QAbstractSlider::SliderSingleStepAdd : QAbstractSlider::SliderSingleStepSub);
    }
    QString moveSlider() {
        step(someSlider(), below(2) == 0);
        return "slider";
    }
    QString dragSlider() {
        QSlider& slider = someSlider();
        pane->dragDidBegin();
        for (std::uint32_t steps = below(6); steps > 0; --steps)
            step(slider, below(2) == 0);
        pane->dragDidEnd();
        return "drag";
    }

    /// What is done in the sheet that comes up, if one does.
    void whenAsked(const std::function<void(QDialog*)>& answer) {
        QTimer::singleShot(0, window.get(), [answer] {
            if (auto* sheet = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                answer(sheet);
        });
    }
    void confirmNext() {
        whenAsked([confirmed = below(4) != 0](QDialog* sheet) {
            if (confirmed)
                sheet->accept();
            else
                sheet->reject();
        });
    }
    void settle() { QCoreApplication::processEvents(); }

    QString addProfile() {
        if (tree().array("profiles").size() < limits::profiles)
            pane->createNewProfile(below(2) == 0);
        return "new profile";
    }
    QString removeProfile() {
        confirmNext();
        pane->actionButtonProfileRemove();
        settle();
        return "delete profile";
    }
    QString selectProfile() {
        selectRow("quorviTableProfiles", int(below(tree().array("profiles").size())));
        return "select profile";
    }
    QString switchAutomatically() {
        pane->setObjectValue(
            below(2) == 0, kProfileAutoswitchColumn, int(below(tree().array("profiles").size())));
        return "switch automatically";
    }
    QString rename() {
        const QString name(1 + int(below(6)), QChar(u'a' + char16_t(below(26))));
        if (below(2) == 0)
            pane->setObjectValue(name, kProfileNameColumn, int(below(tree().array("profiles").size())));
        else if (const auto macros = tree().array("macros").size(); macros > 0)
            pane->setObjectValue(name, kMacroNameColumn, int(below(macros)));
        return "rename";
    }
    QString addMacro() {
        if (tree().array("macros").size() < limits::macros)
            pane->actionButtonMacroAdd();
        return "new macro";
    }
    QString removeMacro() {
        confirmNext();
        pane->actionButtonMacroRemove();
        settle();
        return "delete macro";
    }
    QString selectMacro() {
        if (const auto macros = tree().array("macros").size(); macros > 0)
            selectRow("quorviTableMacros", int(below(macros)));
        return "select macro";
    }
    QString record() {
        if (pane->macroIndex() < 0)
            return selectMacro();
        pane->startStopRecording(true, below(5) == 0);
        for (std::uint32_t keys = below(4); keys > 0 && pane->isRecordingMacro(); --keys)
            pane->appendMacroStep(below(2), std::uint8_t(4 + below(26)), 0);
        pane->startStopRecording(false, false);
        return "record";
    }
    QString commandForSteps() {
        static constexpr std::array kItems{
            kRemoveStepItem, kRemoveAllStepsItem, kUseDelayForAllItem, kRemoveAllDelaysItem};
        if (const auto steps = selectedSteps(); steps > 0)
            selectRow("quorviTableSteps", int(below(steps)));
        QAction item;
        item.setData(kItems[below(kItems.size())]);
        item.setProperty("tag", item.data());
        pane->actionMenuTableContext(&item);
        return "steps";
    }
    [[nodiscard]] std::size_t selectedSteps() const {
        return pane->macroIndex() < 0
                   ? 0
                   : tree().array("macros").dictionary(std::size_t(pane->macroIndex())).array("steps").size();
    }
    QString changeDelay() {
        if (const auto steps = selectedSteps(); steps > 0)
            pane->setObjectValue(int(below(500)), kStepDelayColumn, int(below(steps)));
        return "delay";
    }
    QString changeStages() {
        whenAsked([this, add = below(2) == 0, accepts = below(4) != 0](QDialog* sheet) {
            if (add)
                pane->actionButtonStageAdd();
            else
                pane->actionButtonStageRemove();
            if (accepts)
                sheet->accept();
            else
                sheet->reject();
        });
        pane->actionButtonEditStages();
        settle();
        return "stages";
    }
    QString restoreDefaults() {
        confirmNext();
        pane->actionButtonRestoreDefaults();
        settle();
        return "restore defaults";
    }

    std::mt19937 m_random;
    UndoWitness m_witness;
};

} // namespace

class UndoByChanceTest : public QObject {
    Q_OBJECT

  private slots:
    void leadsBackAndForthByteForByte() {
        const auto seed = qEnvironmentVariableIntValue("QUORVI_UNDO_SEED");
        ChancePanel panel(seed > 0 ? std::uint32_t(seed) : 1U);
        QStringList last;
        for (int number = 0; number < kActions; ++number) {
            last << panel.go();
            if (last.size() > 12)
                last.removeFirst();
            QVERIFY2(panel.fault.isEmpty(), qPrintable(QStringLiteral("%1 at action %2, after %3")
                                                           .arg(panel.fault)
                                                           .arg(number)
                                                           .arg(last.join(", "))));
        }
        QVERIFY(panel.helper->commands().count("KyPR 0") > kActions / 100);
    }
};

QUORVI_PANE_TEST_MAIN(UndoByChanceTest)
#include "UndoByChanceTest.moc"
