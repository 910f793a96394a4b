#include "widgets/PopUpButton.h"

#include <QAction>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

#include "widgets/MenuItems.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolIcon.h"

namespace quorvi {

namespace {

// Wide enough for most titles. The button must not grow and shrink with the selected one.
constexpr int kWidthInCharacters = 14;
// Between a title and the room for an icon, as in other combo boxes.
constexpr int kIconSpacing = 4;
constexpr int kContentMargin = 2;

/// Some styles mirror a combo box's text but not its arrow, which then covers the text.
bool coversTextWhenMirrored(const QStyle& style, const QStyleOptionComboBox& option, const QWidget* button) {
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ComboBox, &option, part, button);
    };
    return option.direction == Qt::RightToLeft &&
           place(QStyle::SC_ComboBoxEditField).contains(place(QStyle::SC_ComboBoxArrow).center());
}

/// Draws frame and arrow, with the arrow at the end of the line in every style.
void drawFrame(QStylePainter& painter, const QStyleOptionComboBox& option, const QWidget& button) {
    if (!coversTextWhenMirrored(*button.style(), option, &button)) {
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        return;
    }
    QStyleOptionComboBox turned = option;
    turned.direction = Qt::LeftToRight;
    painter.save();
    painter.translate(option.rect.right() + option.rect.left() + 1, 0);
    painter.scale(-1, 1);
    painter.drawComplexControl(QStyle::CC_ComboBox, turned);
    painter.restore();
}

} // namespace

// The size policy that matches sizeHint() would create the list view, which this button never shows; avoiding
// it saves 2.5 ms of the start.
PopUpButton::PopUpButton(QWidget* parent) : QComboBox(parent) {
    setMinimumContentsLength(kWidthInCharacters);
}

// Delete the menu while the button is still complete, because the button tracks its items until their end.
PopUpButton::~PopUpButton() {
    delete m_menu;
}

void PopUpButton::setMenu(QMenu* menu) {
    if (menu && menu == m_menu)
        return;
    m_original = nullptr;
    m_awaited.reset();
    selectItem(nullptr);
    delete m_menu;
    if (menu)
        adopt(*menu);
}

void PopUpButton::adopt(QMenu& menu) {
    m_menu = &menu;
    menu.setParent(this, menu.windowFlags());
    closeWhenChosen(menu);
    connect(&menu, &QMenu::triggered, this, &PopUpButton::chooseTriggeredItem);
    connect(&menu, &QMenu::aboutToHide, this, QOverload<>::of(&QWidget::update));
}

void PopUpButton::setMenuLike(const QMenu& original) {
    setMenu(nullptr);
    m_original = &original;
}

QMenu* PopUpButton::menu() {
    if (m_original) {
        adopt(*copyOfMenu(*m_original).release());
        m_original = nullptr;
        if (const auto awaited = std::exchange(m_awaited, std::nullopt))
            selectItemWithTag(awaited->tag, awaited->title);
        emit menuMade();
    }
    return m_menu;
}

QList<QAction*> PopUpButton::items() {
    QMenu* menu = this->menu();
    return menu ? selectableItems(*menu) : QList<QAction*>();
}

QAction* PopUpButton::itemWithTag(int tag) {
    QMenu* menu = this->menu();
    return menu ? selectableItemWithTag(*menu, tag) : nullptr;
}

int PopUpButton::indexOfItemWithTag(int tag) {
    QAction* item = itemWithTag(tag);
    return item ? int(items().indexOf(item)) : -1;
}

QAction* PopUpButton::selectedItem() {
    (void)menu();
    return m_selected;
}

int PopUpButton::selectedTag() {
    const QAction* item = selectedItem();
    return item ? tagOfItem(*item).value_or(-1) : -1;
}

void PopUpButton::selectItem(QAction* item) {
    if (item != m_selected) {
        if (m_selected)
            disconnect(m_selected, nullptr, this, nullptr);
        m_selected = items().contains(item) ? item : nullptr;
        if (m_selected) {
            connect(m_selected, &QAction::changed, this, &PopUpButton::showSelectedTitle);
            connect(m_selected, &QObject::destroyed, this, &PopUpButton::showSelectedTitle);
        }
    }
    markSelectedItem();
    showSelectedTitle();
}

bool PopUpButton::selectItemWithTag(int tag, const std::optional<QString>& title) {
    if (m_original) {
        const QAction* item = selectableItemWithTag(*m_original, tag);
        m_awaited = item ? std::optional(AwaitedItem{tag, title}) : std::nullopt;
        if (item && title)
            showText(shownTitle(*title));
        else
            showTitle(item);
        return item != nullptr;
    }
    QAction* item = itemWithTag(tag);
    if (item && title)
        setTitleOfItem(*item, *title);
    selectItem(item);
    return m_selected != nullptr;
}

void PopUpButton::selectNone(const QString& text) {
    m_awaited.reset();
    if (!m_original)
        selectItem(nullptr);
    showText(text);
}

void PopUpButton::setSymbol(std::optional<Symbol> symbol) {
    if (std::exchange(m_symbol, symbol) != symbol)
        update();
}

void PopUpButton::chooseTriggeredItem(QAction* item) {
    if (!items().contains(item)) {
        emit listItemChosen(item);
        return;
    }
    selectItem(item);
    emit itemChosen(item);
}

void PopUpButton::showSelectedTitle() {
    showTitle(m_selected);
}

void PopUpButton::showTitle(const QAction* item) {
    if (item)
        showText(shownTitleOfItem(*item));
    else
        clear();
}

void PopUpButton::showText(const QString& title) {
    if (count() == 0)
        addItem(title);
    else
        setItemText(0, title);
}

// Also marks the group of the selected item, so that the open menu shows the path to it.
void PopUpButton::markSelectedItem() {
    if (!m_menu)
        return;
    for (QAction* item : m_menu->actions()) {
        if (isItemGroup(*item))
            markItem(*item, selectableItems(*item->menu()).contains(m_selected.data()));
    }
    for (QAction* item : items())
        markItem(*item, item == m_selected);
}

// The size of other combo boxes with that many characters and an icon, even without one.
QSize PopUpButton::minimumSizeHint() const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QFontMetrics metrics = fontMetrics();
    const int width = minimumContentsLength() * metrics.horizontalAdvance(QLatin1Char('X'));
    const QSize content(width + iconSize().width() + kIconSpacing,
        std::max(metrics.height(), iconSize().height()) + kContentMargin);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this);
}

void PopUpButton::showPopup() {
    if (!menu() || m_menu->isVisible() || !isEnabled())
        return;
    // Items of the profile and macro lists are added and removed while the selection stays.
    markSelectedItem();
    m_menu->setAccessibleName(accessibleName());
    m_menu->setMinimumWidth(width());
    m_menu->popup(positionOfMenu(*m_menu, *this, rect()));
    if (m_selected && m_menu->actions().contains(m_selected.data()) && !m_selected->menu())
        m_menu->setActiveAction(m_selected);
    else if (!QGuiApplication::mouseButtons())
        activateFirstItem(*m_menu);
    update();
}

void PopUpButton::hidePopup() {
    if (m_menu)
        m_menu->hide();
    QComboBox::hidePopup();
}

// The tool tip shows a cut title in full.
bool PopUpButton::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QComboBox::event(event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const bool fits = titleThatFits(option) == currentText();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip(fits), this);
    return true;
}

/// A title is a user-given name, not markup.
QString PopUpButton::tip(bool titleFits) const {
    if (titleFits)
        return toolTip();
    QStringList lines{currentText().toHtmlEscaped(), toolTip().toHtmlEscaped()};
    lines.removeAll(QString());
    return QStringLiteral("<span>%1</span>").arg(lines.join(QStringLiteral("<br>")));
}

QString PopUpButton::titleThatFits(const QStyleOptionComboBox& option) const {
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const int sign = m_symbol ? metrics::iconSize + kIconSpacing : 0;
    // Some styles leave a margin within the field.
    return fontMetrics().elidedText(
        currentText(), Qt::ElideRight, field.width() - sign - fontMetrics().averageCharWidth());
}

// Like QComboBox, but cuts a long title with dots in every style.
void PopUpButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    if (m_menu && m_menu->isVisible())
        option.state |= QStyle::State_Sunken | QStyle::State_On;
    option.currentText = titleThatFits(option);
    if (m_symbol) {
        option.currentIcon = symbolIcon(*m_symbol);
        option.iconSize = QSize(metrics::iconSize, metrics::iconSize);
    }
    drawFrame(painter, option, *this);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void PopUpButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        showPopup();
    else
        event->ignore();
}

void PopUpButton::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

// The arrow keys open the menu instead of changing a mouse button's function unseen.
void PopUpButton::keyPressEvent(QKeyEvent* event) {
    if (keyOpensMenu(event->key()))
        showPopup();
    else
        event->ignore();
}

void PopUpButton::keyReleaseEvent(QKeyEvent* event) {
    event->ignore();
}

// Scrolling over the button must not change a mouse button's function.
void PopUpButton::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace quorvi
