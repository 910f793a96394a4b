#include "window/ActionNames.h"

namespace quorvi {

std::u16string actionName(const QString& text) {
    return text.toStdU16String();
}

std::u16string actionName(const QString& text, const std::u16string& name) {
    return actionName(text, QString::fromStdU16String(name));
}

std::u16string actionName(const QString& text, const QString& name) {
    return actionName(filledText(text, {nameFor(text, name)}));
}

QString textWithName(const QString& text, const std::u16string& name) {
    return filledText(text, {nameFor(text, QString::fromStdU16String(name))});
}

} // namespace quorvi
