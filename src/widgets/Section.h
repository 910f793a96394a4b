// What belongs together on a page, under a heading.
#pragma once

#include <QWidget>

namespace quorvi {

/// Draws its heading, and keeps room for it above what is in it. It has no frame: the heading and the space
/// around it separate enough, at less than what a group box costs. Assistive programs know it as a group of
/// that name (see AccessibleWidgets.h).
class Section : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    /// False where a label in the section says the title, beside something else.
    Q_PROPERTY(bool headed READ isHeaded WRITE setHeaded)

  public:
    explicit Section(QWidget* parent = nullptr);

    [[nodiscard]] QString title() const { return m_title; }
    void setTitle(const QString& title);

    [[nodiscard]] bool isHeaded() const { return m_headed; }
    void setHeaded(bool headed);

    /// Wide enough for the heading.
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont headingFont() const;
    [[nodiscard]] QSize withHeading(const QSize& size) const;
    void keepRoom();

    QString m_title;
    bool m_headed = true;
};

} // namespace quorvi
