#include "pane/KeyNaming.h"

#include <utility>

#include "keyboard/KeyNames.h"

namespace quorvi {

KeyNaming::KeyNaming(PanelText text) : m_text(std::move(text)) {}

void KeyNaming::start(const MakeWatcher& watchKeyboardLayout) {
    if (watchKeyboardLayout) {
        m_layout = watchKeyboardLayout();
        connect(m_layout.get(), &KeyboardLayoutWatcher::layoutChanged, this, [this] {
            nameKeys();
            emit namesChanged();
        });
    }
    nameKeys();
}

void KeyNaming::nameKeys() {
    GetKeyboardInformation([this](std::u16string_view key) {
        const QByteArray english = QString::fromUtf16(key.data(), int(key.size())).toUtf8();
        return m_text(english.constData()).toStdU16String();
    });
}

} // namespace quorvi
