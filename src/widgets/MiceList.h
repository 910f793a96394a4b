// The mice of this computer, one below the other: a box to use each, and what there is to say of it.
#pragma once

#include <QList>
#include <QScrollArea>
#include <QString>

class QLabel;
class QVBoxLayout;

namespace quorvi {

class MouseRow;

struct MouseLine {
    QString id;     ///< tells the mice apart; never shown
    QString name;   ///< shortened where there is no room
    QString detail; ///< below the name
    bool inUse = false;
    bool canSetUp = false;

    bool operator==(const MouseLine&) const = default;
};

class MiceList : public QScrollArea {
    Q_OBJECT
    /// What stands in the list while it has no mice.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)
    /// What each mouse's box does.
    Q_PROPERTY(QString boxDescription READ boxDescription WRITE setBoxDescription)
    /// The title of each mouse's button, what a screen reader calls it, with "^1" for the mouse's name, what
    /// it does, and why it cannot do it now.
    Q_PROPERTY(QString setUpText MEMBER m_setUpText)
    Q_PROPERTY(QString setUpName MEMBER m_setUpName)
    Q_PROPERTY(QString setUpDescription MEMBER m_setUpDescription)
    Q_PROPERTY(QString setUpHindrance MEMBER m_setUpHindrance)

  public:
    explicit MiceList(QWidget* parent = nullptr);
    ~MiceList() override;

    /// Replaces what is listed. A mouse that stays keeps the keyboard's focus.
    void setLines(const QList<MouseLine>& lines);
    /// What takes the focus, from above.
    [[nodiscard]] QList<QWidget*> stops() const;

    [[nodiscard]] QString emptyText() const;
    void setEmptyText(const QString& text);
    [[nodiscard]] QString boxDescription() const { return m_boxDescription; }
    void setBoxDescription(const QString& text) { m_boxDescription = text; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    /// The user has checked or unchecked the mouse's box.
    void useChosen(const QString& id, bool inUse);
    /// The user has clicked the mouse's button.
    void setUpChosen(const QString& id);
    /// There are other stops than before.
    void stopsChanged();

  private:
    void makeRows(const QList<MouseLine>& lines);
    [[nodiscard]] QSize sizeOfLines(int lines) const;

    QWidget* m_contents;
    QVBoxLayout* m_layout;
    QLabel* m_empty;
    QList<MouseRow*> m_rows;
    QString m_boxDescription;
    QString m_setUpText;
    QString m_setUpName;
    QString m_setUpDescription;
    QString m_setUpHindrance;
};

} // namespace quorvi
