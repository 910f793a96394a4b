#include "history/DifferenceList.h"

#include <algorithm>

#include "history/Differences.h"

namespace quorvi {

std::pair<plist::Value, plist::Value> Both::take(std::string_view key) const {
    std::pair<plist::Value, plist::Value> taken{earlier.value(key), now.value(key)};
    earlier.remove(key);
    now.remove(key);
    return taken;
}

Both Both::takeDictionaries(std::string_view key) const {
    const auto [was, is] = take(key);
    return {was.dictionary(), is.dictionary()};
}

Phrase changePhrase(Phrase subject, Phrase was, Phrase is) {
    return patternPhrase(u"^1: ^2 → ^3", {std::move(subject), std::move(was), std::move(is)});
}

Phrase otherDifference() {
    return patternPhrase(u"Other settings are different");
}

void DifferenceList::addChange(Phrase subject, Phrase was, Phrase is) {
    if (was == is)
        return addOther();
    add(changePhrase(std::move(subject), std::move(was), std::move(is)));
}

void DifferenceList::addOtherUnlessEqual(const Both& both) {
    if (!both.areEqual())
        addOther();
}

std::vector<Phrase> DifferenceList::take() {
    if (m_hasOther || m_sentences.size() > mostDifferences) {
        m_sentences.resize(std::min(m_sentences.size(), mostDifferences - 1));
        m_sentences.push_back(otherDifference());
    }
    return std::move(m_sentences);
}

} // namespace quorvi
