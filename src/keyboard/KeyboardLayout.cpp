#include "keyboard/KeyboardLayout.h"

#include <utility>

#include "keyboard/MacRoman.h"
#include "keyboard/VirtualKeys.h"

namespace quorvi {

namespace {

KeyboardLayoutSources& layoutSources() {
    static KeyboardLayoutSources sources;
    return sources;
}

std::int32_t layoutOfInputSource(const KeyboardLayoutSources& sources, KeyboardLayoutRef& layout) {
    std::optional<InputSource> source = sources.currentInputSource();
    if (!source && sources.asciiCapableInputSource)
        source = sources.asciiCapableInputSource();
    if (!source || !source->layout)
        return keyboardLayoutNotFound;
    layout = std::move(source->layout);
    return keyboardLayoutFound;
}

std::int32_t layoutOfManager(
    const KeyboardLayoutSources& sources, KeyboardLayoutRef& layout, OldStyleLayout& oldStyle) {
    ManagedLayout managed = sources.managedLayout();
    if (managed.status != 0)
        return managed.status;
    switch (managed.kind) {
    case layoutKindBoth:
    case layoutKindUnicode:
        layout = std::move(managed.layout);
        break;
    case layoutKindOldStyle:
        oldStyle = std::move(managed.oldStyle);
        break;
    default:
        break;
    }
    return layout || oldStyle ? keyboardLayoutFound : keyboardLayoutNotFound;
}

} // namespace

void SetKeyboardLayoutSources(KeyboardLayoutSources sources) {
    layoutSources() = std::move(sources);
}

void SetCurrentKeyboardLayout(KeyboardLayoutRef layout) {
    KeyboardLayoutSources sources;
    if (layout)
        sources.currentInputSource = [layout = std::move(layout)] { return InputSource{layout}; };
    SetKeyboardLayoutSources(std::move(sources));
}

std::int32_t CompatibleGetKeyboardLayout(KeyboardLayoutRef* layout, OldStyleLayout* oldStyle) {
    if (layout == nullptr || oldStyle == nullptr)
        return keyboardLayoutParameterMissing;
    layout->reset();
    *oldStyle = nullptr;

    const KeyboardLayoutSources& sources = layoutSources();
    if (sources.currentInputSource)
        return layoutOfInputSource(sources, *layout);
    if (sources.managedLayout)
        return layoutOfManager(sources, *layout, *oldStyle);
    return keyboardLayoutNotFound;
}

std::uint8_t CompatibleKeyTranslate(std::uint8_t keyCode, std::uint16_t modifiers,
    const KeyboardLayout* layout, const OldStyleLayout& oldStyle, std::uint32_t* deadKeyState) {
    if (layout != nullptr) {
        std::uint32_t ownState = 0;
        const KeyTranslation typed = layout->translate(
            keyCode, modifierByte(modifiers), deadKeyState != nullptr ? *deadKeyState : ownState);
        return typed.succeeded && typed.character ? UnicodeToMacRoman(*typed.character) : std::uint8_t{0};
    }
    if (oldStyle)
        return static_cast<std::uint8_t>(
            oldStyle(static_cast<std::uint16_t>((modifiers & 0xFF00) | keyCode)));
    return 0;
}

} // namespace quorvi
