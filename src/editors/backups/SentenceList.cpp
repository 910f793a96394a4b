#include "editors/backups/SentenceList.h"

#include <QStringListModel>
#include <QStyledItemDelegate>

#include <memory>

namespace quorvi {

namespace {

/// Rows as high as their texts are in the width that there is: a list asks as if its scroll bar had no width.
/// They are drawn as those of a list with the focus, because some styles grey the others.
class WrappedRows : public QStyledItemDelegate {
  public:
    explicit WrappedRows(QListView* list) : QStyledItemDelegate(list), m_list(*list) {}

    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem narrow = option;
        narrow.rect.setWidth(m_list.viewport()->width() - 2 * m_list.spacing());
        return {narrow.rect.width(), QStyledItemDelegate::sizeHint(narrow, index).height()};
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        for (const auto role : {QPalette::Text, QPalette::HighlightedText, QPalette::Highlight})
            option->palette.setBrush(QPalette::Inactive, role, option->palette.brush(QPalette::Active, role));
    }

  private:
    const QListView& m_list;
};

} // namespace

SentenceList::SentenceList(QWidget* parent) : QListView(parent) {
    setEditTriggers(NoEditTriggers);
    setWordWrap(true);
    setResizeMode(Adjust);
    setSpacing(1);
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setItemDelegate(std::make_unique<WrappedRows>(this).release());
}

void SentenceList::setSentences(const QStringList& sentences) {
    auto* model = qobject_cast<QStringListModel*>(this->model());
    if (!model) {
        model = new QStringListModel(this);
        setModel(model);
        setSelectionMode(NoSelection); // they are read, and nothing is chosen among them
    }
    model->setStringList(sentences);
    setCurrentIndex(model->index(0, 0));
}

} // namespace quorvi
