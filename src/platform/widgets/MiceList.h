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

    bool operator==(const MouseLine&) const = default;
};

class MiceList : public QScrollArea {
    Q_OBJECT
    /// What stands in the list while it has no mice.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)
    /// What each mouse's box does.
    Q_PROPERTY(QString boxDescription READ boxDescription WRITE setBoxDescription)

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
};

} // namespace quorvi
