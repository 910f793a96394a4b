#include "resources/Interface.h"

#include <QMenu>

#include <algorithm>
#include <array>
#include <memory>

#include "resources/Inputs.h"
#include "widgets/InputLines.h"
#include "widgets/SymbolIcon.h"

namespace quorvi {

namespace {

constexpr qreal kHeadingScale = 1.35;
constexpr qreal kNoteScale = 0.9;

// The fonts follow the desktop's font, which an interface file cannot say.
void scaleFonts(const QWidget& view) {
    for (QWidget* widget : view.findChildren<QWidget*>()) {
        const bool heading = widget->property("heading").toBool();
        if (!heading && !widget->property("note").toBool())
            continue;
        QFont font = widget->font();
        const qreal scale = heading ? kHeadingScale : kNoteScale;
        if (font.pointSizeF() > 0)
            font.setPointSizeF(font.pointSizeF() * scale);
        else // the desktop gives its font in pixels
            font.setPixelSize(qRound(font.pixelSize() * scale));
        font.setBold(heading);
        widget->setFont(font);
    }
}

// A layout asks a wrapped text for the height that it needs, but not for the least one of its window, and Qt
// opens a window no higher than two thirds of the screen.
class TextHeights : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        // The height of an empty text is negative.
        if (auto* text = qobject_cast<QLabel*>(watched); text && event->type() == QEvent::Resize)
            text->setMinimumHeight(std::max(0, text->heightForWidth(text->width())));
        return QObject::eventFilter(watched, event);
    }
};

void widenButtons(const QWidget& view) {
    for (QPushButton* button : view.findChildren<QPushButton*>())
        widenButton(*button);
}

/// Texts that change have their room from the start, so that nothing around them moves.
void reserveLines(const QWidget& view) {
    for (QLabel* label : view.findChildren<QLabel*>())
        if (const int lines = label->property("lines").toInt(); lines > 0)
            label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
}

template <typename PanelUi>
QDialog* addPanel(QWidget& owner, PanelUi& ui) {
    auto panel = std::make_unique<QDialog>(&owner);
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
        ButtonSymbol{"quorviButtonProfileAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonProfileRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonProfileGear", Symbol::Gear},
        ButtonSymbol{"quorviButtonMacroAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonMacroRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonMacroGear", Symbol::Gear},
        ButtonSymbol{"quorviButtonStepAdd", Symbol::Add},
        ButtonSymbol{"quorviButtonStepRemove", Symbol::Remove},
        ButtonSymbol{"quorviButtonStepGear", Symbol::Gear},
        ButtonSymbol{"quorviButtonStepRecord", Symbol::Record},
        ButtonSymbol{"quorviStageButtonAdd", Symbol::Add},
        ButtonSymbol{"quorviStageButtonRemove", Symbol::Remove},
    };
    for (const ButtonSymbol& button : symbols)
        view.findChild<QAbstractButton*>(QLatin1String(button.name))->setIcon(symbolIcon(button.symbol));
}

} // namespace

Interface::Interface(QWidget& mainView) {
    main.setupUi(&mainView);
    menus = createMenus(mainView);
    main.quorviMenuPollingRate->setMenu(createPollingRateMenu().release());
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

    scaleFonts(mainView);
    reserveLines(mainView);
    setSymbols(mainView);
    widenButtons(mainView);
    keepTextsWhole(mainView);
    connectInputs(main);
}

void keepTextsWhole(QWidget& view) {
    auto* heights = new TextHeights(&view);
    for (QLabel* label : view.findChildren<QLabel*>()) {
        if (label->wordWrap() && (label->property("note").toBool() || label->property("whole").toBool()))
            label->installEventFilter(heights);
    }
}

void widenButton(QPushButton& button) {
    if (!button.text().isEmpty())
        button.setMinimumWidth(button.sizeHint().width() + 2 * button.fontMetrics().averageCharWidth());
}

void setLayoutDirection(QWidget& mainView, Qt::LayoutDirection direction) {
    mainView.setLayoutDirection(direction);
    // A label goes by its own text, which here is a name that the user gave or a number.
    for (const char* name : {"quorviTextProfile", "quorviTextConnection", "quorviTextFirmwareVersion",
             "quorviTextDriverVersion", "textSetUpMouse"})
        mainView.findChild<QLabel*>(QLatin1String(name))
            ->setAlignment(
                QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter) | Qt::AlignAbsolute);
    for (QWidget* widget : mainView.findChildren<QWidget*>()) {
        // Windows do not take it from what they belong to, and the cells beside the drawing stand in a view
        // that is never mirrored.
        const bool inCell = widget->parentWidget()->objectName() == QLatin1String("viewAssignments") &&
                            !qobject_cast<MouseView*>(widget) && !qobject_cast<InputLines*>(widget);
        if (widget->isWindow() || inCell)
            widget->setLayoutDirection(direction);
    }
}

} // namespace quorvi
