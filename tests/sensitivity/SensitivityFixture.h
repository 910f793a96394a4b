// The real panel on its sensitivity tab, and its changes to the settings file.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QTest>

#include "base/FileCalls.h"
#include "pane/PaneFixture.h"
#include "support/SliderTools.h"
#include "widgets/KyvarQuorviSlider.h"

namespace quorvi::test {

/// Writes down which of the calls below came, and passes all on.
class RecordingCalls : public FileCalls {
  public:
    QStringList log; ///< "rename", "sync file", "sync folder"

    int renameat(int folder, const char* from, const char* to) override;
    int renameat2(int folder, const char* from, const char* to, unsigned flags) override;
    int fsync(int file) override;
};

class SensitivityFixture : public PaneFixture {
  public:
    explicit SensitivityFixture(RecordingCalls* calls = nullptr);

    /// openWith(), and brings the sensitivity tab to the front.
    void open(const plist::Dictionary& tree = sampleTree());
    /// A tree whose current stage, the second of three, and settings have axes of their own.
    [[nodiscard]] static plist::Dictionary separateAxes(int x, int y);

    [[nodiscard]] KyvarQuorviSlider* slider(const char* name) const { return find<KyvarQuorviSlider>(name); }
    [[nodiscard]] bool isChecked(const char* box) const { return find<QCheckBox>(box)->isChecked(); }
    /// Presses the key in the control; one that is disabled is an error.
    void press(const char* control, Qt::Key key) const;

    // What the file holds now.
    [[nodiscard]] plist::Dictionary savedSettingsPart() const;
    [[nodiscard]] plist::Array savedStages() const;      ///< of the first profile
    [[nodiscard]] plist::Dictionary savedDriver() const; ///< of the first profile
    /// "x/y" or "x/y separate" of the current stage and the settings, in one text when they agree.
    [[nodiscard]] QString savedResolution() const;

    /// The same of every stage of the first profile.
    [[nodiscard]] QStringList savedResolutions() const;

    /// Waits for exactly that many announcements of a save, and forgets them.
    [[nodiscard]] bool announced(int saves) const;
    /// Nothing was saved and nothing announced since the last look.
    [[nodiscard]] bool nothingHappened();

  private:
    QByteArray m_file;
};

/// "x/y", with " separate" behind it when the flag is set.
[[nodiscard]] QString resolutionOf(const plist::Dictionary& holder);

/// Opens the sheet of the stages by its button, does that in it, and returns when it is closed. A failed
/// check closes it.
void inStagesSheet(const PaneFixture& fixture, std::function<void(QDialog*)> action);
/// Ends the sheet by its button.
void endSheet(QDialog* sheet, bool ok);

} // namespace quorvi::test
