// A page of the window that scrolls up and down where its content does not fit.
#pragma once

#include <QPointer>
#include <QWidget>

class QScrollArea;

namespace quorvi {

/// Its one child is its content, which has a layout and fills it. Where the content needs more height, the
/// page scrolls, by a frameless area that is made only then: most windows never need one, and it costs five
/// widgets. Sideways it never scrolls: where the content's usual form does not fit, or the page is narrow,
/// the page asks for the content's narrow form.
///
/// A widget that takes the focus by a key is scrolled into sight.
class ScrollPage : public QWidget {
    Q_OBJECT

  public:
    explicit ScrollPage(QWidget* parent = nullptr);

    [[nodiscard]] bool isNarrow() const { return m_narrow; }
    /// Whether there is more than can be seen at once.
    [[nodiscard]] bool scrolls() const;

    [[nodiscard]] QSize sizeHint() const override;
    /// Low: what does not fit is reached by scrolling.
    [[nodiscard]] QSize minimumSizeHint() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    /// The content is to take its narrow form, or its usual one again.
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
    int m_usualWidth = 0; ///< that the content's usual form needs
    bool m_narrow = false;
};

} // namespace quorvi
