// The current macro, played in the window to be seen: by the engine that the mouse runs, into one field.
//
// Nothing of it leaves the window: no key reaches another program, the desktop, or another part of the panel,
// and the clipboard stays as it is.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "editors/playing/PlayedMacro.h"
#include "editors/playing/TrialKeyboard.h"
#include "editors/playing/TrialView.h"
#include "window/EditorContext.h"

namespace quorvi {

class MacroTrial final : private PlayedMacro::Listener {
  public:
    struct Others {
        PlayedMacro::Time time;
        std::function<bool()> isRecording;
        /// Marks the step that has gone out last, none for nothing.
        std::function<void(std::optional<std::size_t> step)> markStep;
        /// Shows how far the macro is, some thirty times a second or, where nothing is to move, with each
        /// step; nothing when none plays.
        std::function<void(std::optional<std::chrono::milliseconds> time)> showTime;
    };

    MacroTrial(const EditorContext& context, const TrialView::Views& views, Others others);

    /// Plays the current macro, or ends that. Does nothing when there is nothing to play.
    void startOrStop();
    void stop();
    [[nodiscard]] bool isRunning() const { return m_keyboard != nullptr; }

    /// Derives from the document whether there is something to play, and ends what is played when it is not
    /// what is shown any more: another macro, other steps, another profile, no mouse, a recording.
    void show();

  private:
    void keyChanged(std::uint8_t usage, bool down) override;
    void buttonChanged(int button, bool down) override;
    void stepHasGoneOut() override;
    void hasEnded() override;

    [[nodiscard]] bool isPossible() const;
    [[nodiscard]] bool isStillShown() const;
    void start();
    void showFrame();

    EditorContext m_context;
    TrialView m_view;
    Others m_others;
    PlayedMacro m_macro;
    std::unique_ptr<TrialKeyboard> m_keyboard; ///< null while nothing plays
    std::unique_ptr<QObject> m_awaitingFrame;  ///< null while nothing is to move
    plist::Value m_steps;                      ///< a copy of those that are played
    std::int32_t m_macroIndex = -1;
    std::int32_t m_profileIndex = -1;
};

} // namespace quorvi
