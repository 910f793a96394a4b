// The lists of profiles and of macros in the menus of the assignment pop-ups.
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

#include "model/Limits.h"
#include "plist/Value.h"

class QMenu;

namespace quorvi {

class PopUpButton;

/// The pop-ups of the nine inputs, in order.
using AssignmentPopUps = std::array<PopUpButton*, limits::buttons>;

class AssignmentLists {
  public:
    /// If the pop-ups are destroyed before, no member may be called any more.
    explicit AssignmentLists(const AssignmentPopUps& popUps) : m_popUps(popUps) {}

    /// Lists the profiles in every menu. An item's tag is the profile's position, from 0.
    void listProfiles(const plist::Array& profiles);
    /// Lists the macros in every menu. An item's tag is the macro's identifier.
    void listMacros(const plist::Array& macros);
    /// Lists both in the pop-up's newly made menu.
    void fill(PopUpButton& popUp) const;

  private:
    struct Entry {
        QString title;
        std::int32_t tag;
        bool operator==(const Entry&) const = default;
    };
    using Entries = std::vector<Entry>;

    template <typename Tag>
    [[nodiscard]] static Entries entriesOf(const plist::Array& list, const Tag& tagOf);
    static void listInSubmenu(QMenu& submenu, PopUpButton& popUp, const Entries& entries);
    static void listIn(PopUpButton& popUp, int command, const Entries& entries);
    void follow(Entries& listed, Entries entries, int command) const;

    AssignmentPopUps m_popUps;
    Entries m_profiles; ///< as listed
    Entries m_macros;   ///< the same
};

} // namespace quorvi
