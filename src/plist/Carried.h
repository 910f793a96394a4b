// The values that the tree carries without interpreting them. Private to this library.
#pragma once

#include "plist/Node.h"
#include "plist/Value.h"

namespace quorvi::plist {

/// Owns a copy of a libplist node. The node is kept rather than its value because libplist's getters lose
/// some of it: dates come out as 32-bit seconds, and integers without their width.
class Carried {
  public:
    explicit Carried(plist_t node) : m_node(plist_copy(node)) {}

    /// Borrowed; never null.
    [[nodiscard]] plist_t node() const { return m_node.get(); }

  private:
    Node m_node;
};

} // namespace quorvi::plist
