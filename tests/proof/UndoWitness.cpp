#include "proof/UndoWitness.h"

#include "document/UndoStack.h"
#include "plist/DeepCopy.h"
#include "plist/Writer.h"

namespace quorvi::test {

std::string UndoWitness::bytesOf(const plist::Dictionary& tree) {
    return plist::writeXml(tree).value_or("");
}

void UndoWitness::beginAction(const plist::Dictionary& tree) {
    m_begun = plist::mutableDeepCopy(tree);
}

void UndoWitness::noteAction(const plist::Dictionary& tree) {
    if (bytesOf(m_begun) == bytesOf(tree))
        return;
    m_before.push_back(m_begun);
    if (m_before.size() > UndoStack::kMostActions)
        m_before.pop_front();
    m_after.clear();
}

std::string UndoWitness::undo(const plist::Dictionary& tree) {
    m_after.push_back(plist::mutableDeepCopy(tree));
    const auto bytes = bytesOf(m_before.back());
    m_before.pop_back();
    return bytes;
}

std::string UndoWitness::redo(const plist::Dictionary& tree) {
    m_before.push_back(plist::mutableDeepCopy(tree));
    const auto bytes = bytesOf(m_after.back());
    m_after.pop_back();
    return bytes;
}

void UndoWitness::othersSet(std::string_view key, std::int32_t number) {
    for (const auto* trees : {&m_before, &m_after})
        for (const plist::Dictionary& tree : *trees)
            tree.set(key, number);
}

} // namespace quorvi::test
