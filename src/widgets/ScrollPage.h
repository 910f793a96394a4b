// A page of the window that scrolls vertically if its content does not fit.
#pragma once

#include <QPointer>
#include <QWidget>

class QScrollArea;

namespace quorvi {

/// Its only child is its content, which has a layout and fills the page. If the content needs more height,
/// the page scrolls in a frameless scroll area. The area is created only then: most windows never need one,
/// and it costs five widgets. The page never scrolls horizontally: if the content's usual form does not fit,
/// or the page is narrow, the page requests the content's narrow form.
///
/// Scrolls to a widget that gets the focus by a key.
class ScrollPage : public QWidget {
    Q_OBJECT

  public:
    explicit ScrollPage(QWidget* parent = nullptr);
    ~ScrollPage() override;

    [[nodiscard]] bool isNarrow() const { return m_narrow; }
    /// Whether the content is higher than the page.
    [[nodiscard]] bool scrolls() const;

    [[nodiscard]] QSize sizeHint() const override;
    /// Low, because the content can be scrolled.
    [[nodiscard]] QSize minimumSizeHint() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    /// The content must adopt its narrow form, or its usual one.
    void narrowChanged(bool narrow);

  protected:
    void childEvent(QChildEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void place();
    void placeIfShown();
    void chooseForm();
    void makeArea();
    void showFocused(QWidget* focused);
    [[nodiscard]] int leastHeight(int width) const;

    QPointer<QWidget> m_content;
    QScrollArea* m_area = nullptr;
    int m_usualWidth = 0; ///< the width that the content's usual form needs
    bool m_narrow = false;
};

} // namespace quorvi
