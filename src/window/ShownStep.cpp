#include "window/ShownStep.h"

#include "macros/StepText.h"

namespace quorvi {

QString shownStep(const plist::Dictionary& step, const PanelText& text) {
    const auto lookup = [&text](std::u16string_view english) {
        const QByteArray key = QString::fromUtf16(english.data(), int(english.size())).toUtf8();
        return text(key.constData()).toStdU16String();
    };
    return QString::fromStdU16String(stepText(step, lookup));
}

} // namespace quorvi
