// The names of keys in the present keyboard layout.
#pragma once

#include <QObject>

#include <functional>
#include <memory>

#include "platform/KeyboardLayoutWatcher.h"
#include "widgets/FilledText.h"

namespace quorvi {

class KeyNaming final : public QObject {
    Q_OBJECT

  public:
    using MakeWatcher = std::function<std::unique_ptr<KeyboardLayoutWatcher>()>;

    /// `text` translates the names that are words.
    explicit KeyNaming(PanelText text);

    /// Names the keys now and, with a watcher, whenever the layout changes.
    void start(const MakeWatcher& watchKeyboardLayout);

  signals:
    /// The names of keys have changed.
    void namesChanged();

  private:
    void nameKeys();

    PanelText m_text;
    std::unique_ptr<KeyboardLayoutWatcher> m_layout; ///< null until start(), and without a watcher
};

} // namespace quorvi
