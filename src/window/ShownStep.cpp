#include "window/ShownStep.h"

#include <utility>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"

namespace quorvi {

TextLookup lookupIn(PanelText text) {
    return [text = std::move(text)](std::u16string_view english) {
        const QByteArray key = QString::fromUtf16(english.data(), int(english.size())).toUtf8();
        return text(key.constData()).toStdU16String();
    };
}

QString shownStep(const plist::Dictionary& step, const PanelText& text) {
    return QString::fromStdU16String(stepText(step, lookupIn(text)));
}

KeyboardLayoutRef layoutInUse() {
    KeyboardLayoutRef layout;
    OldStyleLayout oldStyle;
    static_cast<void>(CompatibleGetKeyboardLayout(&layout, &oldStyle));
    return layout;
}

QString shownLane(const TimelineLane& lane, const PanelText& text) {
    if (lane.kind == LaneKind::buttons)
        return text("Mouse");
    QString unknown = QStringLiteral("?");
    if (lane.kind == LaneKind::other)
        return unknown;
    const auto key = UsbToAdbKeycode(static_cast<std::uint8_t>(lane.key));
    const QString name = QString::fromStdU16String(shownKeyCombination(key, 0));
    return name.isEmpty() ? unknown : name;
}

} // namespace quorvi
