// A group of controls on a page, under a heading.
#pragma once

#include <QWidget>

namespace quorvi {

/// Draws its heading and reserves room for it above the content. It has no frame: heading and space separate
/// enough, and cost less than a group box. Assistive programs see a group of that name (see
/// AccessibleWidgets.h).
class Section : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    /// False if a label in the section shows the title, next to other content.
    Q_PROPERTY(bool headed READ isHeaded WRITE setHeaded)

  public:
    explicit Section(QWidget* parent = nullptr);

    [[nodiscard]] QString title() const { return m_title; }
    void setTitle(const QString& title);

    [[nodiscard]] bool isHeaded() const { return m_headed; }
    void setHeaded(bool headed);

    /// Greys the heading, or takes that back; the section itself stays enabled. See makeViewActive().
    void setHeadingActive(bool active);

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
    bool m_headingActive = true;
};

} // namespace quorvi
