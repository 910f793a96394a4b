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
        QWidget& mainView;                ///< the panel hangs on its window
        std::filesystem::path homeFolder; ///< games are looked for in it
        std::function<void()> showChange; ///< has the list show the application
    };

    ProfileApplication(const EditorContext& context, Surroundings surroundings);

    /// Lets the user choose one. As a sheet does, the panel comes when the command that asked for it is done.
    void showPanel();
    /// The end of that panel, with QDialog::Accepted or not.
    void assign(const ApplicationPanel& panel, int returnCode);
    /// A bundle, a desktop entry or any other file. One without a name or a program changes nothing.
    void assign(const QString& path);

    /// Whether there is a binding to remove.
    [[nodiscard]] bool isBound() const;
    /// Removes the binding; the command that asked for it saves.
    void remove();

  private:
    void ask();
    void bindTo(const ApplicationInformation& application);
    void commit(const Change& change);

    EditorContext m_context;
    Surroundings m_surroundings;
};

} // namespace quorvi
