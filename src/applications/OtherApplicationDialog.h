// The file panel for an application that is not listed.
#pragma once

#include <QFileDialog>

#include "platform/InterfaceText.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// Chooses one file, or one application bundle: a folder "*.app", which is opened like a file instead of
/// being entered. This is Qt's own panel, because those of the desktops choose either files or folders.
/// fileSelected() reports the choice.
class OtherApplicationDialog : public QFileDialog {
    Q_OBJECT

  public:
    explicit OtherApplicationDialog(
        QWidget* parent = nullptr,
        const PanelText& text = [](const char* english) { return interfaceText(english); });

    void accept() override;

  private:
    void enter(const QString& folder);
};

} // namespace quorvi
