#include "live/ConnectionText.h"

#include <algorithm>

#include "events/HelperInterface.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// An unplugged mouse is not in the device list, so it does not count as connected.
bool isConnected(const ListedHelperMouse& mouse) {
    return mouse.inUse && mouse.state != helperinterface::kStateAbsent &&
           mouse.state != helperinterface::kStateRefused && mouse.state != helperinterface::kStateAsking;
}

} // namespace

bool anyMouseIsThere(const HelperNews& helper) {
    return !helper.demonstration && std::ranges::any_of(helper.mice, isConnected);
}

QString connectionTextOf(const HelperNews& helper, const PanelText& text) {
    if (helper.demonstration)
        return helper.hasService ? text("Demonstration mouse – choose yours on the Device tab")
                                 : text("Connected");
    QStringList names;
    for (const ListedHelperMouse& mouse : helper.mice)
        if (isConnected(mouse) && !mouse.name.empty())
            names << shownName(QString::fromStdString(mouse.name));
    return names.isEmpty() ? text("Connected") : shownText(joinedText(text("^1, ^2, ^3"), names));
}

} // namespace quorvi
