#include "resources/Interface.h"

#include <QMenu>

#include <algorithm>
#include <array>
#include <memory>

#include "resources/Gaps.h"
#include "resources/Inputs.h"
#include "resources/TextRoles.h"
#include "widgets/InputLines.h"
#include "widgets/ListButtonRow.h"
#include "widgets/NumberField.h"
#include "widgets/SymbolIcon.h"

namespace quorvi {

namespace {

// A layout queries a wrapped text's height, but not for the window's minimum size, and Qt opens a window no
// higher than two thirds of the screen.
class TextHeights : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        // The height of an empty text is negative.
        auto* text = qobject_cast<QLabel*>(watched);
        if (text && event->type() == QEvent::Resize && !isBeingMade(*text->window()))
            text->setMinimumHeight(std::max(0, text->heightForWidth(text->width())));
        return QObject::eventFilter(watched, event);
    }

  private:
    /// A busy display reports the size that it made the window with, some dozens of pixels, after the window
    /// was given its own. A text that is as high as that asks for would keep the window high.
    static bool isBeingMade(const QWidget& window) { return window.width() < window.minimumWidth(); }
};

/// A page that scrolls asks for the heights itself. There, a least height from an earlier width would make
/// the page scroll before the text could have its present width.
bool isOnScrollPage(const QWidget& part) {
    const QWidget* above = part.parentWidget();
    while (above && !qobject_cast<const ScrollPage*>(above))
        above = above->parentWidget();
    return above != nullptr;
}

/// Texts that change have their room from the start, so that nothing around them moves.
void reserveLines(QLabel& label) {
    if (const int lines = label.property("lines").toInt(); lines > 0)
        label.setMinimumHeight(lines * label.fontMetrics().lineSpacing());
}

/// The row gives it its place.
bool isInRow(const QWidget& button) {
    return qobject_cast<const ListButtonRow*>(button.parentWidget()) != nullptr;
}

/// What an interface file cannot say: fonts and measures that follow the desktop, in one walk.
void finish(const QWidget& view) {
    for (QObject* part : view.findChildren<QObject*>()) {
        if (auto* layout = qobject_cast<QLayout*>(part))
            setGaps(*layout);
        if (!part->isWidgetType())
            continue;
        setTextRole(*static_cast<QWidget*>(part));
        if (auto* label = qobject_cast<QLabel*>(part))
            reserveLines(*label);
        else if (auto* button = qobject_cast<QPushButton*>(part); button && !isInRow(*button))
            widenButton(*button);
    }
}

template <typename PanelUi>
QDialog* addPanel(QWidget& owner, PanelUi& ui) {
    auto panel = std::make_unique<QDialog>(&owner);
    setMutedColours(*panel); // windows take no colours from what they belong to
    ui.setupUi(panel.get());
    return panel.release();
}

void setSymbols(const QWidget& view) {
    struct ButtonSymbol {
        const char* name;
        Symbol symbol;
    };
    static constexpr std::array symbols{
        ButtonSymbol{"quorviButtonUndo", Symbol::Undo},
        ButtonSymbol{"quorviButtonRedo", Symbol::Redo},
        ButtonSymbol{"quorviButtonHelp", Symbol::Help},
        ButtonSymbol{"quorviButtonProfileAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonProfileRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonProfileApplication", Symbol::Open},
        ButtonSymbol{"quorviButtonProfileGear", Symbol::More},
        ButtonSymbol{"quorviButtonMacroAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonMacroRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonMacroGear", Symbol::More},
        ButtonSymbol{"quorviButtonStepAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonStepRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonStepGear", Symbol::More},
        ButtonSymbol{"quorviButtonStepRecord", Symbol::Record},
        ButtonSymbol{"quorviButtonMacroRecord", Symbol::Record},
        ButtonSymbol{"quorviButtonMacroPlay", Symbol::Play},
        ButtonSymbol{"quorviStageButtonAdd", Symbol::Add},
        ButtonSymbol{"quorviStageButtonRemove", Symbol::Remove},
    };
    for (const ButtonSymbol& button : symbols)
        view.findChild<QAbstractButton*>(QLatin1String(button.name))->setIcon(symbolIcon(button.symbol));
}

void setTabSymbols(TabView& tabs) {
    constexpr std::array symbols{
        Symbol::Mouse, Symbol::Speed, Symbol::Profile, Symbol::Macro, Symbol::Device};
    for (std::size_t tab = 0; tab < symbols.size(); ++tab)
        tabs.setSymbol(int(tab), symbols[tab]);
}

void joinFields(const Ui::KyvarQuorviPane& main, const Ui::StagesPanel& stages) {
    main.quorviFieldSensitivityX->join(*main.quorviSliderSensitivityX);
    main.quorviFieldSensitivityY->join(*main.quorviSliderSensitivityY);
    stages.quorviStageFieldX->join(*stages.quorviStageSliderX);
    stages.quorviStageFieldY->join(*stages.quorviStageSliderY);
}

/// What stands side by side where there is room stands below each other on a narrow page.
void stackWhereNarrow(const ScrollPage& page, std::initializer_list<QBoxLayout*> rows) {
    for (QBoxLayout* row : rows)
        QObject::connect(&page, &ScrollPage::narrowChanged, row, [row](bool narrow) {
            row->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        });
}

} // namespace

Interface::Interface(QWidget& mainView) {
    setMutedColours(mainView);
    main.setupUi(&mainView);
    menus = createMenus(mainView);
    main.quorviMenuPollingRate->setMenu(createPollingRateMenu().release());
    // Not in the interface file, which would disable it before its label is made: of what begins disabled,
    // Qt 5 tells screen readers neither the kind nor the text.
    main.quorviMenuProfile->setEnabled(false);
    main.quorviMenuProfile->setCommands(menus.quorviMenuProfiles);
    main.quorviButtonProfileGear->setCommands(menus.quorviMenuProfileGear);
    main.quorviButtonMacroGear->setCommands(menus.quorviMenuMacroGear);
    main.quorviButtonStepGear->setCommands(menus.quorviMenuStepGear);
    main.quorviTableProfiles->setMenu(menus.quorviMenuProfileGear);
    main.quorviTableMacros->setMenu(menus.quorviMenuMacroGear);
    main.quorviTableSteps->setMenu(menus.quorviMenuStepGear);

    quorviPanelConfirm = addPanel(mainView, confirm);
    quorviPanelNoDevice = addPanel(mainView, noDevice);
    quorviPanelStages = addPanel(mainView, stages);
    quorviPanelSingleKey = addPanel(mainView, singleKey);
    quorviPanelSetUp = addPanel(mainView, setUp);
    quorviPanelRestore = addPanel(mainView, restore);

    confirm.viewQuestion->setSymbol(Symbol::Help);
    setTabSymbols(*main.quorviTabsMain);
    setSymbols(mainView); // before the walk, which measures buttons with their signs
    finish(mainView);
    // As high as the row beside it, so that list and timeline begin at one height.
    main.labelMacros->setMinimumHeight(main.quorviButtonStepRecord->sizeHint().height());
    keepTextsWhole(mainView);
    connectInputs(main);
    joinFields(main, stages);
    stackWhereNarrow(
        *main.tabSensitivity, {main.layoutResolutionHead, main.layoutStagesRow, main.layoutAccelerationRow});
    // It repeats what the check boxes say.
    QObject::connect(main.tabDevice, &ScrollPage::narrowChanged, main.viewLights, &QWidget::setHidden);
}

void keepTextsWhole(QWidget& view) {
    auto* heights = new TextHeights(&view);
    for (QLabel* label : view.findChildren<QLabel*>()) {
        if (label->wordWrap() && (isHint(*label) || label->property("whole").toBool()) &&
            !isOnScrollPage(*label))
            label->installEventFilter(heights);
    }
}

void widenButton(QPushButton& button) {
    if (!button.text().isEmpty())
        button.setMinimumWidth(button.sizeHint().width() + 2 * button.fontMetrics().averageCharWidth());
}

void setLayoutDirection(QWidget& mainView, Qt::LayoutDirection direction) {
    mainView.setLayoutDirection(direction);
    // A label's direction follows its text, here a user-given name or a number.
    for (const char* name : {"quorviTextProfile", "quorviTextConnection", "quorviTextFirmwareVersion",
             "quorviTextDriverVersion", "textSetUpMouse", "labelSteps"})
        mainView.findChild<QLabel*>(QLatin1String(name))
            ->setAlignment(
                QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter) | Qt::AlignAbsolute);
    for (QWidget* widget : mainView.findChildren<QWidget*>()) {
        // Windows do not inherit it, and the cells next to the drawing are in a view that is never mirrored.
        const bool inCell = widget->parentWidget()->objectName() == QLatin1String("viewAssignments") &&
                            !qobject_cast<MouseView*>(widget) && !qobject_cast<InputLines*>(widget);
        if (widget->isWindow() || inCell)
            widget->setLayoutDirection(direction);
    }
}

} // namespace quorvi
