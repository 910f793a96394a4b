#include "editors/backups/SentenceList.h"

#include <QStringListModel>
#include <QStyledItemDelegate>

#include <memory>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

/// Rows as high as their wrapped texts: QListView's hint ignores the scroll bar's width.
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
        keepColours(*option);
        if (option->state & QStyle::State_Selected)
            option->state &= ~QStyle::State_HasFocus; // some styles draw it as a veil over the text
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
        setSelectionMode(NoSelection); // they are for reading, not for selecting
    }
    model->setStringList(sentences);
    setCurrentIndex(model->index(0, 0));
}

} // namespace quorvi
