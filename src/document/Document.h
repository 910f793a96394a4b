// The settings that the panel edits, and the current items in them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "document/UndoStack.h"
#include "plist/Value.h"

namespace quorvi {

/// The parts of the window that a change affects.
enum class Shown : std::uint8_t {
    everything,
    lights,       ///< the two boxes and the drawings of the mouse
    acceleration, ///< the curve
    nothing,      ///< the used control already shows it
};

/// When a change is saved.
enum class Saving : std::uint8_t {
    now,
    withNextAction, ///< with the next save; until then no file has it
    never,          ///< it need not be saved, or the caller saves it
};

/// The parts that a change may have modified.
enum class Touched : std::uint8_t {
    everything,
    currentProfile, ///< only it and the settings: faster to record
};

/// The consequences of a change.
struct Change {
    Shown shown = Shown::everything;
    Saving saving = Saving::now;
    /// The user's action as a command in the user's language: "Delete Macro “Say hi”". Empty for a change
    /// that is not an action by itself; it then belongs to the next action.
    std::u16string action = {};
    Touched touched = Touched::everything;
};

/// The object that shows the document and saves it.
class DocumentOwner {
  public:
    virtual void showDocument(Shown shown) = 0;
    virtual void saveDocument() = 0;
    /// The tree holds user changes that the next save must include.
    virtual void saveDocumentLater() = 0;
    /// The next action to undo or redo has changed, perhaps to none.
    virtual void undoHasChanged() {}
    /// The user has started another action: offers for the last one end.
    virtual void actionHasBegun() {}

  protected:
    ~DocumentOwner() = default;
};

/// One live configuration tree. The current items (settings(), profile(), …) are handles into it that only
/// editProfileIndex() and editMacroIndex() update: an edit changes the tree in place through them, and then
/// calls commit(). Without a tree or a current profile or macro they are nil, which reads as empty and
/// ignores changes.
class Document {
  public:
    /// The owner must outlive it.
    explicit Document(DocumentOwner& owner) : m_owner(owner) {}
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Whether there is a mouse: without one the lists are empty, and editing is disabled.
    [[nodiscard]] bool hasDevice() const { return m_hasDevice; }
    void setHasDevice(bool hasDevice) { m_hasDevice = hasDevice; }

    [[nodiscard]] const plist::Dictionary& tree() const { return fDeviceConfig; }
    /// Sets the tree; nil for none. The current items still belong to the old one.
    void setTree(const plist::Dictionary& tree) { fDeviceConfig = tree; }

    /// Makes the profile at the index the current one, and stores that in the settings. An index without a
    /// profile leaves no current profile. The current stage is the one in the settings.
    void editProfileIndex(std::int32_t index);
    /// Updates the current profile and macro after the tree has changed from outside. The current macro stays
    /// if it is still at its place.
    void editSameItems();
    /// The profile that the settings name as the current one, from 0; -1 for none.
    [[nodiscard]] std::int32_t profileIndexOfSettings() const;
    /// Makes the current profile's default stage the current one, with its sensitivity.
    void startInDefaultStage();
    /// Sets "independentxy" in the settings and the current stage to whether the settings' two values differ.
    void alignIndependentAxes();
    /// Copies the settings' sensitivity to the current stage. Returns whether it was different.
    bool alignStageWithSettings();
    /// Makes the macro at the index the current one; an index without a macro leaves none.
    void editMacroIndex(std::int32_t index);

    [[nodiscard]] const plist::Dictionary& settings() const { return fSettings; }
    [[nodiscard]] const plist::Array& profiles() const { return fProfiles; }
    [[nodiscard]] const plist::Dictionary& profile() const { return fProfile; }
    [[nodiscard]] const plist::Dictionary& buttons() const { return fButtons; }
    [[nodiscard]] const plist::Array& stages() const { return fStages; }
    [[nodiscard]] const plist::Dictionary& stage() const { return fStage; }
    /// The profile's data that is not sent to the device: its application, and options of panel and helper.
    [[nodiscard]] const plist::Dictionary& driverData() const { return fDriverData; }
    [[nodiscard]] const plist::Array& macros() const { return fMacros; }
    [[nodiscard]] const plist::Dictionary& macro() const { return fMacro; }
    [[nodiscard]] const plist::Array& macroSteps() const { return fMacroSteps; }
    [[nodiscard]] std::int32_t profileIndex() const { return fProfileIndex; }
    [[nodiscard]] std::int32_t stageIndex() const { return fStageIndex; }
    [[nodiscard]] std::int32_t macroIndex() const { return fMacroIndex; }

    /// Every change of the tree ends here: it is shown, recorded for undo if it is the user's action, and
    /// then saved. Returns whether an undoable action was added.
    bool commit(const Change& change = {});
    /// Everything committed until endGroup() is one action, such as a drag.
    void beginGroup() { m_actions.beginGroup(); }
    void endGroup();

    /// Call this when the tree was read, or a save has merged other programs' changes.
    void takeOthersOver();
    /// The same for repairs by the panel itself.
    void takeRepairsOver();
    /// Makes a change that is not a user action, such as the mouse's own. A user action in progress is still
    /// recorded later.
    void changeQuietly(const std::function<void()>& change);
    [[nodiscard]] UndoOffer undoOffer() const { return m_actions.undoOffer(); }
    [[nodiscard]] UndoOffer redoOffer() const { return m_actions.redoOffer(); }
    /// Undoes the last action in the tree. The caller must show the tree and commit.
    Restored undo() { return restored(m_actions.undo(fDeviceConfig)); }
    /// Redoes the last undone action; the caller has the same duties.
    Restored redo() { return restored(m_actions.redo(fDeviceConfig)); }

  private:
    bool note(const Change& change);
    Restored restored(Restored change);

    DocumentOwner& m_owner;
    UndoStack m_actions;
    bool m_hasDevice = false;
    plist::Dictionary fDeviceConfig;
    plist::Dictionary fSettings;
    plist::Array fProfiles;
    plist::Dictionary fProfile;
    plist::Dictionary fButtons;
    plist::Array fStages;
    plist::Dictionary fStage;
    plist::Dictionary fDriverData;
    plist::Array fMacros;
    plist::Dictionary fMacro;
    plist::Array fMacroSteps;
    std::int32_t fProfileIndex = -1;
    std::int32_t fStageIndex = -1;
    std::int32_t fMacroIndex = -1;
};

} // namespace quorvi
