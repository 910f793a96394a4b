// The row of tabs: a sign and a title each, without frames, and a line under the current one.
#pragma once

#include <QTabBar>

#include <cstdint>

namespace quorvi {

enum class Symbol : std::uint8_t;

/// A tab bar in all but its looks: keys, letters that lead to tabs, and assistive programs find it as they
/// know it. It takes the first of its forms that fits the room that it is given.
class FlatTabBar : public QTabBar {
    Q_OBJECT

  public:
    explicit FlatTabBar(QWidget* parent = nullptr);

    void setSymbol(int tab, Symbol symbol);
    /// Takes the form that fits the width: with signs and wide, with signs and narrow, titles alone.
    void fitInto(int width);

    [[nodiscard]] QSize sizeHint() const override;
    /// That of the smallest form.
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Form {
        int padding;
        bool hasSigns;
    };
    static const Form kForms[3];

    [[nodiscard]] int widthOf(int tab, const Form& form) const;
    [[nodiscard]] int widthIn(const Form& form) const;
    void paintTab(QPainter& painter, int tab) const;

    const Form* m_form = kForms;
    int m_pointedAt = -1;
};

} // namespace quorvi
