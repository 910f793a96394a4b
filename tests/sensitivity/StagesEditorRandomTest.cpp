// Random editing of stages against a naive implementation of the same rules.

#include <QRandomGenerator>

#include <vector>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "sensitivity/SensitivityFixture.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kActions = 10000;
constexpr int kActionsPerSheet = 100;
constexpr char kTable[] = "quorviStageTableStages";

struct NaiveStage {
    int x = 0;
    int y = 0;
    bool separate = false;
};

/// The rules once more, on a plain list.
struct NaiveEditor {
    std::vector<NaiveStage> stages{{400, 400}, {800, 800}, {1600, 1600}};
    int current = 1;

    void add() {
        if (stages.size() == 5)
            return;
        stages.insert(stages.begin() + current + 1, NaiveStage(stages[std::size_t(current)]));
        ++current;
    }
    void remove() {
        if (stages.size() == 2)
            return;
        stages.erase(stages.begin() + current);
        if (current == int(stages.size()))
            --current;
    }
    NaiveStage& stage() { return stages[std::size_t(current)]; }
    void setX(int value) {
        stage().x = value;
        if (!stage().separate)
            stage().y = value;
    }
    void setY(int value) { stage().y = value; }
    void toggle() {
        stage().separate = !stage().separate;
        if (!stage().separate)
            stage().y = stage().x;
    }
    [[nodiscard]] QStringList texts() const {
        QStringList result;
        for (const NaiveStage& s : stages)
            result << (s.separate ? QStringLiteral("X = %1, Y = %2 DPI").arg(s.x).arg(s.y)
                                  : QStringLiteral("%1 DPI").arg(s.x));
        return result;
    }
    [[nodiscard]] QStringList resolutions() const {
        QStringList result;
        for (const NaiveStage& s : stages)
            result << QStringLiteral("%1/%2%3").arg(s.x).arg(s.y).arg(s.separate ? " separate" : "");
        return result;
    }
};

int moved(int value, Qt::Key key) {
    switch (key) {
    case Qt::Key_Right:
        return qMin(value + 25, 6475);
    case Qt::Key_Left:
        return qMax(value - 25, 100);
    case Qt::Key_PageUp:
        return qMin(value + 250, 6475);
    case Qt::Key_PageDown:
        return qMax(value - 250, 100);
    case Qt::Key_Home:
        return 100;
    default:
        return 6475;
    }
}

} // namespace

class StagesEditorRandomTest : public QObject {
    Q_OBJECT

    SensitivityFixture m_fixture;
    NaiveEditor m_naive;
    QRandomGenerator m_random{20260807};

    [[nodiscard]] Qt::Key anyKey() {
        constexpr std::array keys{Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_PageUp, Qt::Key_PageUp,
            Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
        return keys[m_random.bounded(quint32(keys.size()))];
    }

    void act() {
        switch (m_random.bounded(8)) {
        case 0:
            if (m_naive.stages.size() < 5)
                m_fixture.click("quorviStageButtonAdd");
            else
                m_fixture.pane->actionButtonStageAdd(); // the button is disabled
            m_naive.add();
            break;
        case 1:
            m_fixture.click("quorviStageButtonRemove");
            m_naive.remove();
            break;
        case 2:
            m_fixture.press(kTable, m_random.bounded(2) ? Qt::Key_Delete : Qt::Key_Backspace);
            m_naive.remove();
            break;
        case 3:
        case 4: {
            const int row = m_random.bounded(int(m_naive.stages.size()));
            m_fixture.selectRow(kTable, row);
            m_naive.current = row;
            break;
        }
        case 5: {
            const Qt::Key key = anyKey();
            m_fixture.press("quorviStageSliderX", key);
            // A key that moves nothing chooses nothing.
            if (const int value = moved(m_naive.stage().x, key); value != m_naive.stage().x)
                m_naive.setX(value);
            break;
        }
        case 6:
            if (m_naive.stage().separate) {
                const Qt::Key key = anyKey();
                m_fixture.press("quorviStageSliderY", key);
                m_naive.setY(moved(m_naive.stage().y, key));
            }
            break;
        default:
            m_fixture.click("quorviStageBoxIndepXY");
            m_naive.toggle();
            break;
        }
    }

    void checkSheet() {
        QCOMPARE(shownIn(m_fixture, kTable, 1), m_naive.texts());
        QCOMPARE(m_fixture.selectedRow(kTable), m_naive.current);
        QVERIFY(m_naive.stages.size() >= 2 && m_naive.stages.size() <= 5);
        QCOMPARE(m_fixture.slider("quorviStageSliderX")->value(), m_naive.stage().x);
        QCOMPARE(m_fixture.slider("quorviStageSliderY")->value(), m_naive.stage().y);
        QCOMPARE(m_fixture.isEnabled("quorviStageSliderY"), m_naive.stage().separate);
        QCOMPARE(m_fixture.isChecked("quorviStageBoxIndepXY"), m_naive.stage().separate);
        QCOMPARE(m_fixture.isEnabled("quorviStageButtonAdd"), m_naive.stages.size() < 5);
    }

    void checkStored() {
        const auto tree = m_fixture.savedSettings();
        QCOMPARE(m_fixture.savedResolutions(), m_naive.resolutions());
        QCOMPARE(tree.dictionary("settings").integer("stage"), m_naive.current + 1);
        QCOMPARE(tree.array("profiles").dictionary(0).integer("defaultstage"), m_naive.current + 1);
        QCOMPARE(resolutionOf(tree.dictionary("settings")), m_naive.resolutions().at(m_naive.current));
        QVERIFY(plist::Value(tree) == plist::Value(m_fixture.pane->deviceConfig()));
        QVERIFY(m_fixture.announced(1));
    }

  private slots:
    void everyActionDoesWhatTheNaiveEditorDoesAndCancelLeavesTheTreeIdentical() {
        m_fixture.open();
        for (int sheet = 0; sheet < kActions / kActionsPerSheet; ++sheet) {
            const NaiveEditor before = m_naive;
            const plist::Value tree = plist::deepCopy(m_fixture.pane->deviceConfig());
            const bool ok = m_random.bounded(2) == 1;
            inStagesSheet(m_fixture, [&](QDialog* dialog) {
                for (int action = 0; action < kActionsPerSheet && !QTest::currentTestFailed(); ++action) {
                    act();
                    checkSheet();
                }
                endSheet(dialog, ok);
            });
            if (ok) {
                checkStored();
            } else {
                m_naive = before;
                QVERIFY(plist::Value(m_fixture.pane->deviceConfig()) == tree);
                QVERIFY(m_fixture.helper->commands().isEmpty());
            }
            if (QTest::currentTestFailed())
                return;
        }
    }
};

QUORVI_PANE_TEST_MAIN(StagesEditorRandomTest)
#include "StagesEditorRandomTest.moc"
