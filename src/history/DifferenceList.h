// Collects differences.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "history/Phrase.h"
#include "plist/Value.h"

namespace quorvi {

/// The same dictionary in both trees. Compared parts are removed; the remaining ones have no words.
struct Both {
    plist::Dictionary earlier;
    plist::Dictionary now;

    [[nodiscard]] std::pair<plist::Value, plist::Value> take(std::string_view key) const;
    [[nodiscard]] Both takeDictionaries(std::string_view key) const;
    [[nodiscard]] bool areEqual() const { return plist::Value(earlier) == plist::Value(now); }
};

/// The subject's old and new value.
[[nodiscard]] Phrase changePhrase(Phrase subject, Phrase was, Phrase is);
/// The sentence for all differences without words.
[[nodiscard]] Phrase otherDifference();

class DifferenceList {
  public:
    void add(Phrase sentence) { m_sentences.push_back(std::move(sentence)); }
    /// Adds the subject's old and new value. If both have the same words, counts it as a difference without
    /// words.
    void addChange(Phrase subject, Phrase was, Phrase is);
    /// Adds a difference without words.
    void addOther() { m_hasOther = true; }
    void addOtherUnlessEqual(const Both& both);

    /// The sentences in order, up to the limit, followed by the one for differences without words.
    [[nodiscard]] std::vector<Phrase> take();

  private:
    std::vector<Phrase> m_sentences;
    bool m_hasOther = false;
};

} // namespace quorvi
