// The application that the current profile is bound to.
#pragma once

#include <QObject>

#include <filesystem>
#include <functional>

#include "document/Document.h"
#include "window/EditorContext.h"

class QWidget;

namespace quorvi {

struct ApplicationInformation;
class ApplicationPanel;

class ProfileApplication final : public QObject {
  public:
    struct Surroundings {
        QWidget& mainView;                ///< the parent window of the panel
        std::filesystem::path homeFolder; ///< the folder to search for games
        std::function<void()> showChange; ///< shows the application in the list
    };

    ProfileApplication(const EditorContext& context, Surroundings surroundings);

    /// Lets the user choose one. Like a sheet, the panel opens when its command has finished.
    void showPanel();
    /// Handles the end of that panel, with QDialog::Accepted or not.
    void assign(const ApplicationPanel& panel, int returnCode);
    /// Assigns a bundle, a desktop entry or any other file. Does nothing for one without a name or a program.
    void assign(const QString& path);

    /// Whether there is a binding to remove.
    [[nodiscard]] bool isBound() const;
    /// Removes the binding; the calling command saves.
    void remove();

  private:
    void ask();
    void bindTo(const ApplicationInformation& application);
    void commit(const Change& change);

    EditorContext m_context;
    Surroundings m_surroundings;
};

} // namespace quorvi
