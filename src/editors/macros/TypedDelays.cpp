#include "editors/macros/TypedDelays.h"

#include <utility>

#include "model/Limits.h"
#include "widgets/ShownText.h"
#include "window/Notices.h"
#include "window/ShownNumber.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

// What messages give as examples: one that the menu does not have, and one with a decimal sign.
constexpr std::int32_t kShortExample = 75;
constexpr std::int32_t kLongExample = 1500;

} // namespace

TypedDelays::TypedDelays(const PanelText& text, Notices& notices) : m_text(text), m_notices(notices) {}

DelayLanguage TypedDelays::language() const {
    return {decimalSign(), lookupIn(m_text)};
}

QString TypedDelays::text(std::int32_t milliseconds) const {
    return QString::fromStdU16String(delayText(milliseconds, language()));
}

std::optional<std::int32_t> TypedDelays::read(const QString& typed) {
    const auto result = delayInText(typed.toStdU16String(), language());
    if (const auto* fault = std::get_if<DelayFault>(&result)) {
        m_hasRefused = true;
        m_notices.tell(Notice::outcome, refusal(*fault, typed), NoticeSign::warning);
        return std::nullopt;
    }
    if (std::exchange(m_hasRefused, false))
        m_notices.withdraw(Notice::outcome);
    return std::get<std::int32_t>(result);
}

QString TypedDelays::refusal(DelayFault fault, const QString& typed) const {
    const auto with = [&](const QString& text, const QStringList& rest = {}) {
        return filledText(text, QStringList{nameWithin(text, shownText(typed))} + rest);
    };
    switch (fault) {
    case DelayFault::negative:
        return with(m_text("“^1” is not a delay: it is below zero."));
    case DelayFault::tooFine:
        return with(m_text("“^1” is not a whole number of milliseconds."));
    case DelayFault::tooLong:
        return with(m_text("“^1” is too long. The longest delay is ^2."), {text(limits::longestDelay)});
    default:
        return with(m_text("“^1” is not a delay. Type one such as ^2 or ^3."),
            {text(kShortExample), text(kLongExample)});
    }
}

QString TypedDelays::explanation() const {
    return filledText(m_text("Choose a delay, or double-click or press F2 to type one, such as ^1 or ^2."),
        {text(kShortExample), text(kLongExample)});
}

} // namespace quorvi
