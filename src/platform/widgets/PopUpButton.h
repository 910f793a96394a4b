// A button that shows the selected item of a menu and opens the menu to choose another. It is a combo box to
// the style, to layouts and to screen readers, and opens a real menu, which can hold submenus.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QPointer>

class QStyleOptionComboBox;

namespace quorvi {

class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    explicit PopUpButton(QWidget* parent = nullptr);
    ~PopUpButton() override;

    /// Takes ownership of the menu, deletes the one before and selects nothing. nullptr leaves no menu.
    void setMenu(QMenu* menu);
    [[nodiscard]] QMenu* menu() const { return m_menu; }

    /// What can be selected, in the order of the menu: see selectableItems() in MenuItems.h.
    [[nodiscard]] QList<QAction*> items() const;
    /// The item with the tag: the menu's own items come first, then those of its groups; never an item of a
    /// list under a tagged item. nullptr when there is none.
    [[nodiscard]] QAction* itemWithTag(int tag) const;
    /// The position of that item in items(); -1 when there is none.
    [[nodiscard]] int indexOfItemWithTag(int tag) const;

    /// nullptr when nothing is selected, also after the selected item was deleted.
    [[nodiscard]] QAction* selectedItem() const { return m_selected; }
    /// The selected item's tag; -1 when nothing is selected or the item has none.
    [[nodiscard]] int selectedTag() const;
    /// Selects and shows the item, and follows its title from then on. nullptr, and an item that is not one
    /// of items(), select none and show nothing. Emits nothing.
    void selectItem(QAction* item);
    /// Selects the item with the tag, or none when no item has it; false then.
    bool selectItemWithTag(int tag);

    void showPopup() override;
    void hidePopup() override;

  signals:
    /// The user chose an item of items(), which is selected now; also when it was selected before.
    void itemChosen(QAction* item);
    /// The user chose an item of the list under a tagged item, which changes nothing by itself.
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
    [[nodiscard]] QString titleThatFits(const QStyleOptionComboBox& option) const;

    QPointer<QMenu> m_menu;
    QPointer<QAction> m_selected;
};

} // namespace quorvi
