// A button that shows the selected item of a menu and opens the menu to choose another. Styles, layouts and
// screen readers treat it as a combo box, but it opens a real menu, which can hold submenus.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QPointer>

#include <cstdint>
#include <memory>
#include <optional>

class QStyleOptionComboBox;

namespace quorvi {

enum class Symbol : std::uint8_t;

class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    explicit PopUpButton(QWidget* parent = nullptr);
    ~PopUpButton() override;

    /// Takes ownership of the menu, deletes the previous one and clears the selection. nullptr for no menu.
    void setMenu(QMenu* menu);
    /// Like setMenu() with a copy of that menu. The copy is made when the menu or an item is first needed,
    /// which saves 3.6 ms of the start. Until then the button shows the item selected by tag with the
    /// original's title, or with a given one. The original must not change before that; if it is destroyed
    /// before, there is no menu.
    void setMenuLike(const QMenu& original);
    [[nodiscard]] QMenu* menu();
    /// Whether the copy has not been made yet.
    [[nodiscard]] bool awaitsMenu() const { return m_original != nullptr; }

    /// The selectable items, in the order of the menu: see selectableItems() in MenuItems.h.
    [[nodiscard]] QList<QAction*> items();
    /// The item with the tag: the menu's own items come first, then those of its groups; never an item of a
    /// list under a tagged item. nullptr when there is none.
    [[nodiscard]] QAction* itemWithTag(int tag);
    /// The position of that item in items(); -1 when there is none.
    [[nodiscard]] int indexOfItemWithTag(int tag);

    /// nullptr without a selection, or after the selected item was deleted.
    [[nodiscard]] QAction* selectedItem();
    /// The selected item's tag; -1 without a selection or a tag.
    [[nodiscard]] int selectedTag();
    /// Selects and shows the item, and follows its title from then on. nullptr, or an item that is not one of
    /// items(), clears the selection and the text. Emits no signal.
    void selectItem(QAction* item);
    /// Selects the item with the tag; returns false and selects none if there is none. A given title becomes
    /// the item's.
    bool selectItemWithTag(int tag, const std::optional<QString>& title = std::nullopt);
    /// Clears the selection and shows the text in place of the title, until the next selection.
    void selectNone(const QString& text);

    /// Draws the sign before the title; std::nullopt for none. The items have no signs, so that no menu need
    /// be made for one.
    void setSymbol(std::optional<Symbol> symbol);
    [[nodiscard]] std::optional<Symbol> symbol() const { return m_symbol; }

    /// A fixed number of characters wide, whatever is selected.
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override;

    void showPopup() override;
    void hidePopup() override;

  signals:
    /// The copy of the menu has been made, with its selection, and is still unchanged. Receivers add further
    /// items now.
    void menuMade();
    /// The user chose an item of items(), which is now selected, perhaps again.
    void itemChosen(QAction* item);
    /// The user chose an item of the list under a tagged item, which does not change the selection by itself.
    void listItemChosen(QAction* item);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void chooseTriggeredItem(QAction* item);
    void showSelectedTitle();
    void markSelectedItem();
    void showTitle(const QAction* item);
    void showText(const QString& title);
    void adopt(QMenu& menu);
    [[nodiscard]] QString tip(bool titleFits) const;
    [[nodiscard]] QString titleThatFits(const QStyleOptionComboBox& option) const;

    QPointer<const QMenu> m_original; ///< of the menu still to be copied
    struct AwaitedItem {
        int tag;
        std::optional<QString> title;
    };
    std::optional<AwaitedItem> m_awaited; ///< the selection to make in it
    std::optional<Symbol> m_symbol;
    QPointer<QMenu> m_menu;
    QPointer<QAction> m_selected;
};

} // namespace quorvi
