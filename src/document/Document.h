// The settings that the panel edits, and which part of them it is at.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "document/UndoStack.h"
#include "plist/Value.h"

namespace quorvi {

/// What of the window has to follow a change.
enum class Shown : std::uint8_t {
    everything,
    lights,       ///< the two boxes and the drawings of the mouse
    acceleration, ///< the curve
    nothing,      ///< the control that was used shows it already
};

/// When a change goes into the file.
enum class Saving : std::uint8_t {
    now,
    withNextAction, ///< with whatever is saved next; until then no file has it
    never,          ///< nothing that a file has to have, or whoever goes on with it saves
};

/// What a change can have touched.
enum class Touched : std::uint8_t {
    everything,
    currentProfile, ///< it alone, and the settings: faster to note
};

/// What a change asks for.
struct Change {
    Shown shown = Shown::everything;
    Saving saving = Saving::now;
    /// What the user has done, in the user's language and as a command names it: "Delete Macro “Say hi”".
    /// Empty for what is no action of its own; what it has changed then belongs to the next action.
    std::u16string action = {};
    Touched touched = Touched::everything;
};

/// Who shows the document and brings it to the disk.
class DocumentOwner {
  public:
    virtual void showDocument(Shown shown) = 0;
    virtual void saveDocument() = 0;
    /// The tree holds changes of the user's that the next save has to bring along.
    virtual void saveDocumentLater() = 0;
    /// Another action is the one to be undone next, or to be redone, or perhaps none is.
    virtual void undoHasChanged() {}
    /// The user has done something else: what was offered for the last action is over.
    virtual void actionHasBegun() {}

  protected:
    ~DocumentOwner() = default;
};

/// One live configuration tree. The current items (settings(), profile(), …) are handles into it that only
/// editProfileIndex() and editMacroIndex() derive anew: an edit changes the tree in place through them, and
/// then calls commit(). Without a tree, and without a current profile or macro, they are nil, which reads as
/// nothing and takes no change.
class Document {
  public:
    /// The owner must outlive it.
    explicit Document(DocumentOwner& owner) : m_owner(owner) {}
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    /// Whether a mouse is there: without one nothing is listed, and nothing can be edited.
    [[nodiscard]] bool hasDevice() const { return m_hasDevice; }
    void setHasDevice(bool hasDevice) { m_hasDevice = hasDevice; }

    [[nodiscard]] const plist::Dictionary& tree() const { return fDeviceConfig; }
    /// Takes another tree, nil for none. The current items still are those of the old one.
    void setTree(const plist::Dictionary& tree) { fDeviceConfig = tree; }

    /// Makes the profile at the index the current one, and says so in the settings. Any other index than one
    /// of a profile leaves no current profile, and nothing to edit. The stage is the one that the settings
    /// name.
    void editProfileIndex(std::int32_t index);
    /// Derives the current profile and macro anew from a tree that others have changed. The macro stays the
    /// current one while it is at its place.
    void editSameItems();
    /// The profile that the settings name as the current one, from 0; -1 for none.
    [[nodiscard]] std::int32_t profileIndexOfSettings() const;
    /// Makes the stage that the current profile starts in the current one, with its sensitivity.
    void startInDefaultStage();
    /// Has the settings and the current stage say that their axes are independent exactly when the settings'
    /// values differ.
    void alignIndependentAxes();
    /// Gives the current stage the sensitivity of the settings, which win. Whether it had another.
    bool alignStageWithSettings();
    /// Makes the macro at the index the current one; any other index than one of a macro leaves none.
    void editMacroIndex(std::int32_t index);

    [[nodiscard]] const plist::Dictionary& settings() const { return fSettings; }
    [[nodiscard]] const plist::Array& profiles() const { return fProfiles; }
    [[nodiscard]] const plist::Dictionary& profile() const { return fProfile; }
    [[nodiscard]] const plist::Dictionary& buttons() const { return fButtons; }
    [[nodiscard]] const plist::Array& stages() const { return fStages; }
    [[nodiscard]] const plist::Dictionary& stage() const { return fStage; }
    /// What the device never sees of the profile: its application, and how the panel and the helper act.
    [[nodiscard]] const plist::Dictionary& driverData() const { return fDriverData; }
    [[nodiscard]] const plist::Array& macros() const { return fMacros; }
    [[nodiscard]] const plist::Dictionary& macro() const { return fMacro; }
    [[nodiscard]] const plist::Array& macroSteps() const { return fMacroSteps; }
    [[nodiscard]] std::int32_t profileIndex() const { return fProfileIndex; }
    [[nodiscard]] std::int32_t stageIndex() const { return fStageIndex; }
    [[nodiscard]] std::int32_t macroIndex() const { return fMacroIndex; }

    /// Every change of the tree ends here: it is shown, noted for undo when it is the user's action, and then
    /// saved. Whether there is an action more to be undone.
    bool commit(const Change& change = {});
    /// What is committed from here to endGroup() is one action, as a drag is.
    void beginGroup() { m_actions.beginGroup(); }
    void endGroup();

    /// The tree is what others have made of it: it was read, or a save has brought their changes along.
    void takeOthersOver();
    /// The same of what the panel itself has put in order in it.
    void takeRepairsOver();
    /// Makes a change that is no action of the user's: the mouse's own, say. What the user is at stays to be
    /// noted.
    void changeQuietly(const std::function<void()>& change);
    [[nodiscard]] UndoOffer undoOffer() const { return m_actions.undoOffer(); }
    [[nodiscard]] UndoOffer redoOffer() const { return m_actions.redoOffer(); }
    /// Takes the last action back in the tree. Whoever calls it shows the tree, and commits.
    Restored undo() { return restored(m_actions.undo(fDeviceConfig)); }
    /// Does the action again that was taken back last; the same holds.
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
