// The layout of a page: its margins, and its content in one column of at most a readable width.
#pragma once

#include <QBoxLayout>

namespace quorvi {

/// The horizontal place of a page's content, without its margins.
struct ContentSpan {
    int margin; ///< on each side
    int width;
};
/// Returns a centred place, as wide as the page allows and at most maxContentWidth. The margins are narrow on
/// a narrow page, and where the needed width would not fit between the usual ones.
[[nodiscard]] ContentSpan contentSpan(int pageWidth, int needed = 0);

/// A box layout with a page's margins and centred content. Its size hints include the narrow margins.
template <typename Box>
class ContentBox : public Box {
  public:
    explicit ContentBox(QWidget* parent = nullptr);

    void setGeometry(const QRect& page) override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] int minimumHeightForWidth(int width) const override;

  private:
    [[nodiscard]] int boxWidth(int pageWidth) const;
};

extern template class ContentBox<QVBoxLayout>;
extern template class ContentBox<QHBoxLayout>;

using ContentColumn = ContentBox<QVBoxLayout>; ///< one thing below the other
using ContentRow = ContentBox<QHBoxLayout>;    ///< side by side

} // namespace quorvi
