// The bar at the window's foot: what would cost the user work is told there, and what came of commands whose
// outcome is not on the screen.

#include "pane/Notices.h"
#include "pane/KyvarQuorviPane.h"
#include "widgets/NoticeBar.h"

namespace quorvi {

void KyvarQuorviPane::tellUser(Notice kind, const QString& text, NoticeSign sign) {
    if (!fMainView)
        return;
    if (!fNotices)
        fNotices = new NoticeBar(locString(QStringLiteral("OK")), *fMainView);
    fNotices->tell(static_cast<int>(kind), text, sign);
}

QString KyvarQuorviPane::pathFromHome(const std::filesystem::path& path) const {
    return QString::fromStdString("~/" + path.lexically_relative(fServices.homeFolder).string());
}

void KyvarQuorviPane::withdrawNotice(Notice kind) {
    if (fMainView && fNotices)
        fNotices->withdraw(static_cast<int>(kind));
}

} // namespace quorvi
