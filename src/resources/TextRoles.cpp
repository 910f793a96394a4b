#include "resources/TextRoles.h"

#include <QEvent>
#include <QFontDatabase>
#include <QVariant>
#include <QWidget>

#include <algorithm>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr const char* kRole = "textRole";
constexpr qreal kTitleScale = 1.3;
constexpr qreal kHintScale = 0.9;
constexpr qreal kLeastHint = 9.0; // points
constexpr qreal kPointsPerInch = 72.0;

void scale(QFont& font, qreal factor) {
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else // the desktop gives its font in pixels
        font.setPixelSize(qRound(font.pixelSize() * factor));
}

/// The size of the desktop's small font as a share of the body's, in the body's unit; 0 where it has none.
qreal smallShare(const QFont& body) {
    static const QFont small = QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont);
    const bool inPoints = body.pointSizeF() > 0;
    const qreal share =
        inPoints ? small.pointSizeF() / body.pointSizeF() : qreal(small.pixelSize()) / body.pixelSize();
    return share > 0 && share < 1 ? share : 0;
}

/// No smaller than can be read, and no larger than the body.
qreal hintShare(const QFont& body, int dotsPerInch) {
    const qreal points =
        body.pointSizeF() > 0 ? body.pointSizeF() : body.pixelSize() * kPointsPerInch / dotsPerInch;
    const qreal least = kLeastHint / points;
    return std::min(1.0, std::max({kHintScale, smallShare(body), least}));
}

/// A palette's colour for placeholders is what Qt has for texts that stand behind: hints take it, and so do
/// the fields' own. It follows the theme.
class MutedColours : public QObject {
  public:
    explicit MutedColours(QWidget& view) : QObject(&view), m_view(view) {
        view.installEventFilter(this);
        set();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange)
            set();
        return QObject::eventFilter(watched, event);
    }

  private:
    void set() {
        QPalette palette = m_view.palette();
        bool changed = false;
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            palette.setCurrentColorGroup(group);
            const QColor muted = mutedTextOnWindow(palette);
            changed = changed || palette.color(group, QPalette::PlaceholderText) != muted;
            palette.setColor(group, QPalette::PlaceholderText, muted);
        }
        palette.setCurrentColorGroup(m_view.palette().currentColorGroup());
        if (!changed)
            return;
        // Only this one: the other colours stay the theme's, whichever comes next.
        QPalette own;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            own.setColor(group, QPalette::PlaceholderText, palette.color(group, QPalette::PlaceholderText));
        m_view.setPalette(own);
    }

    QWidget& m_view;
};

} // namespace

bool isHint(const QWidget& widget) {
    return widget.property(kRole).toByteArray() == "hint";
}

void setTextRole(QWidget& widget) {
    const QByteArray role = widget.property(kRole).toByteArray();
    if (role.isEmpty())
        return;
    QFont font = widget.font();
    if (role == "hint") {
        scale(font, hintShare(font, widget.logicalDpiY()));
        widget.setForegroundRole(QPalette::PlaceholderText);
    } else {
        font.setBold(true);
        if (role == "title")
            scale(font, kTitleScale);
    }
    widget.setFont(font);
}

void setMutedColours(QWidget& view) {
    new MutedColours(view);
}

} // namespace quorvi
