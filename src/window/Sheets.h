// The panel's sheets, and the question before critical actions.
#pragma once

#include <QObject>
#include <QString>

#include <optional>

#include "platform/ModalSession.h"
#include "widgets/FilledText.h"

class QDialog;
class QLabel;
class QPushButton;
class QWidget;

namespace quorvi {

/// The texts of a question.
struct Question {
    const char* message; ///< a key of the string table; its lines are separated by carriage returns
    /// Replaces the message's first "^1", if set.
    std::optional<QString> item = std::nullopt;
    QString effect = {};           ///< shown below the message's first line; already translated
    const char* confirming = "OK"; ///< a key of the string table: the name of the button that confirms
};

class Sheets final : public QObject {
    Q_OBJECT

  public:
    /// The sheet for questions. All of it, and the view, must outlive this object's use.
    struct Views {
        QWidget* mainView;
        QDialog* confirmPanel;
        QLabel* question;
        QPushButton* confirmButton;
        QPushButton* cancelButton;
    };

    Sheets(const Views& views, PanelText text);

    /// Runs the panel as a sheet on the window and returns the code that ended it. The caller may be
    /// destroyed meanwhile.
    int run(QDialog* panel);
    void accept();
    void cancel();
    [[nodiscard]] bool isRunning() const { return m_sessions.isRunning(); }

    /// Whether the user agrees. The caller may be destroyed during the question.
    [[nodiscard]] bool confirm(const Question& question);

  signals:
    /// A sheet has closed; another one may still be open.
    void ended();

  private:
    Views m_views;
    PanelText m_text;
    ModalSessions m_sessions;
};

} // namespace quorvi
