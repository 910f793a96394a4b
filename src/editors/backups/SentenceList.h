// A list of sentences that wrap within the list's width.
#pragma once

#include <QListView>

namespace quorvi {

class SentenceList : public QListView {
  public:
    explicit SentenceList(QWidget* parent = nullptr);

    /// Replaces the sentences, and makes the first one the current row.
    void setSentences(const QStringList& sentences);
};

} // namespace quorvi
