#include "platform/InterfaceText.h"

#include <utility>

namespace quorvi {

namespace {

InterfaceTextLookup& currentLookup() {
    static InterfaceTextLookup lookup;
    return lookup;
}

} // namespace

void setInterfaceTextLookup(InterfaceTextLookup lookup) {
    currentLookup() = std::move(lookup);
}

QString interfaceText(const char* english, const char* /*comment*/) {
    const QString text = QString::fromUtf8(english);
    return currentLookup() ? currentLookup()(text) : text;
}

} // namespace quorvi
