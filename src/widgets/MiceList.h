// The list of this computer's mice: for each a check box to use it, and its details.
#pragma once

#include <QList>
#include <QScrollArea>
#include <QString>

class QLabel;
class QVBoxLayout;

namespace quorvi {

class MouseRow;

struct MouseLine {
    QString id;     ///< identifies the mouse; never shown
    QString name;   ///< shortened if there is no room
    QString detail; ///< below the name
    bool inUse = false;
    bool canSetUp = false;

    bool operator==(const MouseLine&) const = default;
};

class MiceList : public QScrollArea {
    Q_OBJECT
    /// The text of an empty list.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)
    /// The description of each mouse's check box.
    Q_PROPERTY(QString boxDescription READ boxDescription WRITE setBoxDescription)
    /// The title of each mouse's button, its accessible name, with "^1" for the mouse's name, its
    /// description, and the reason why it is disabled.
    Q_PROPERTY(QString setUpText MEMBER m_setUpText)
    Q_PROPERTY(QString setUpName MEMBER m_setUpName)
    Q_PROPERTY(QString setUpDescription MEMBER m_setUpDescription)
    Q_PROPERTY(QString setUpHindrance MEMBER m_setUpHindrance)

  public:
    explicit MiceList(QWidget* parent = nullptr);
    ~MiceList() override;

    /// Replaces the list. A mouse that stays keeps the focus.
    void setLines(const QList<MouseLine>& lines);
    /// The focusable controls, from the top.
    [[nodiscard]] QList<QWidget*> stops() const;

    [[nodiscard]] QString emptyText() const;
    void setEmptyText(const QString& text);
    [[nodiscard]] QString boxDescription() const { return m_boxDescription; }
    void setBoxDescription(const QString& text) { m_boxDescription = text; }

    /// As high as its mice, but at most as high as three: then it scrolls.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  signals:
    /// The user has checked or unchecked the mouse's box.
    void useChosen(const QString& id, bool inUse);
    /// The user has clicked the mouse's button.
    void setUpChosen(const QString& id);
    /// stops() has changed.
    void stopsChanged();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeRows(const QList<MouseLine>& lines);

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
