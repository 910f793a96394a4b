// The row of tabs: a sign and a title each, without frames, and a line under the current one.
#pragma once

#include <QTabBar>

#include <cstdint>

namespace quorvi {

enum class Symbol : std::uint8_t;

/// Differs from QTabBar only in its look: keys, access keys and assistive programs work as usual. It uses the
/// first of its forms that fits the available width.
class FlatTabBar : public QTabBar {
    Q_OBJECT

  public:
    explicit FlatTabBar(QWidget* parent = nullptr);

    void setSymbol(int tab, Symbol symbol);
    /// Selects the first form that fits the width: wide with signs, narrow with signs, titles alone.
    void fitInto(int width);

    [[nodiscard]] QSize sizeHint() const override;
    /// The size of the smallest form.
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
