#include "pane/PanelKeys.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace quorvi {

PanelKeys::PanelKeys(QWidget& view, std::vector<Command> commands)
    : QObject(&view), m_commands(std::move(commands)) {
    view.installEventFilter(this);
}

bool PanelKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    const auto command = std::ranges::find_if(m_commands, [&](const Command& candidate) {
        return key.matches(candidate.key) && (!candidate.isPossible || candidate.isPossible());
    });
    if (command == m_commands.end())
        return false;
    key.accept();
    if (!asks && (command->repeats || !key.isAutoRepeat()))
        command->perform();
    return true;
}

} // namespace quorvi
