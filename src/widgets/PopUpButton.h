// A button that shows the selected item of a menu and opens the menu to choose another. It is a combo box to
// the style, to layouts and to screen readers, and opens a real menu, which can hold submenus.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QPointer>

#include <memory>
#include <optional>

class QStyleOptionComboBox;

namespace quorvi {

class PopUpButton : public QComboBox {
    Q_OBJECT

  public:
    explicit PopUpButton(QWidget* parent = nullptr);
    ~PopUpButton() override;

    /// Takes ownership of the menu, deletes the one before and selects nothing. nullptr leaves no menu.
    void setMenu(QMenu* menu);
    /// As setMenu() with a copy of that menu. The copy is made when somebody first asks for the menu or an
    /// item, which saves 3.6 ms of the start. Until then the button shows what is selected by its tag with
    /// the original's title, or with the one that it was given. The original must not change before; when it
    /// dies before, there is no menu.
    void setMenuLike(const QMenu& original);
    [[nodiscard]] QMenu* menu();
    /// The items are still those of the original, because nobody has asked for one.
    [[nodiscard]] bool awaitsMenu() const { return m_original != nullptr; }

    /// What can be selected, in the order of the menu: see selectableItems() in MenuItems.h.
    [[nodiscard]] QList<QAction*> items();
    /// The item with the tag: the menu's own items come first, then those of its groups; never an item of a
    /// list under a tagged item. nullptr when there is none.
    [[nodiscard]] QAction* itemWithTag(int tag);
    /// The position of that item in items(); -1 when there is none.
    [[nodiscard]] int indexOfItemWithTag(int tag);

    /// nullptr when nothing is selected, also after the selected item was deleted.
    [[nodiscard]] QAction* selectedItem();
    /// The selected item's tag; -1 when nothing is selected or the item has none.
    [[nodiscard]] int selectedTag();
    /// Selects and shows the item, and follows its title from then on. nullptr, and an item that is not one
    /// of items(), select none and show nothing. Emits nothing.
    void selectItem(QAction* item);
    /// Selects the item with the tag, or none when no item has it; false then. A title is the item's own from
    /// then on.
    bool selectItemWithTag(int tag, const std::optional<QString>& title = std::nullopt);
    /// Selects none and shows the text where the title would be, until something is selected.
    void selectNone(const QString& text);

    /// Of a fixed number of characters, whatever is selected.
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override;

    void showPopup() override;
    void hidePopup() override;

  signals:
    /// The awaited copy is there, with its selection, and is still what the original is: who lists further
    /// items in it does so now.
    void menuMade();
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
    void showTitle(const QAction* item);
    void showText(const QString& title);
    void adopt(QMenu& menu);
    [[nodiscard]] QString titleThatFits(const QStyleOptionComboBox& option) const;

    QPointer<const QMenu> m_original; ///< of the menu that has yet to be made
    struct AwaitedItem {
        int tag;
        std::optional<QString> title;
    };
    std::optional<AwaitedItem> m_awaited; ///< what is to be selected in it
    QPointer<QMenu> m_menu;
    QPointer<QAction> m_selected;
};

} // namespace quorvi
