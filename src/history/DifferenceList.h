// Differences while they are found.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "history/Phrase.h"
#include "plist/Value.h"

namespace quorvi {

/// The same dictionary of both trees. What is compared is taken away; what is left has no words.
struct Both {
    plist::Dictionary earlier;
    plist::Dictionary now;

    [[nodiscard]] std::pair<plist::Value, plist::Value> take(std::string_view key) const;
    [[nodiscard]] Both takeDictionaries(std::string_view key) const;
    [[nodiscard]] bool areEqual() const { return plist::Value(earlier) == plist::Value(now); }
};

/// What the subject was, and what it is now.
[[nodiscard]] Phrase changePhrase(Phrase subject, Phrase was, Phrase is);
/// The sentence for everything that there are no words for.
[[nodiscard]] Phrase otherDifference();

class DifferenceList {
  public:
    void add(Phrase sentence) { m_sentences.push_back(std::move(sentence)); }
    /// What the subject was and is. When both are said alike, there are no words for the difference.
    void addChange(Phrase subject, Phrase was, Phrase is);
    /// A difference without words.
    void addOther() { m_hasOther = true; }
    void addOtherUnlessEqual(const Both& both);

    /// The sentences in order, as many as there is room for, the one for what has no words behind them.
    [[nodiscard]] std::vector<Phrase> take();

  private:
    std::vector<Phrase> m_sentences;
    bool m_hasOther = false;
};

} // namespace quorvi
