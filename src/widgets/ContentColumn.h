// The layout of a page: its margins, and what is on it in one column that is never wider than can be read.
#pragma once

#include <QBoxLayout>

namespace quorvi {

/// Where a page's content stands across a page of that width, without its margins.
struct ContentSpan {
    int margin; ///< at either side of it
    int width;
};
/// As wide as the page allows, at most maxContentWidth, in the middle; with narrow margins on a narrow page,
/// and where what needs that width would not fit between the usual ones.
[[nodiscard]] ContentSpan contentSpan(int pageWidth, int needed = 0);

/// A box layout with the margins of a page, whose content is centred. Its hints count the narrow margins.
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
