// A list of sentences, which may be longer than a row is wide.
#pragma once

#include <QListView>

namespace quorvi {

class SentenceList : public QListView {
  public:
    explicit SentenceList(QWidget* parent = nullptr);

    /// Shows these in place of those before, in a model of its own, with the first one as the current row.
    void setSentences(const QStringList& sentences);
};

} // namespace quorvi
