// What assistive programs are told of a widget that draws a list of parts itself.
#pragma once

#include <QAccessibleWidget>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace quorvi {

/// A list of parts. Each is made when it is first asked for, and belongs to the toolkit from then on.
class AccessibleParts : public QAccessibleWidget {
  public:
    explicit AccessibleParts(QWidget* widget);
    ~AccessibleParts() override;

    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

    /// There are other parts, or another number of them.
    void forgetChildren();

  protected:
    /// The toolkit owns what comes back.
    [[nodiscard]] virtual QAccessibleInterface* makeChild(int index) const = 0;

  private:
    mutable std::vector<QAccessible::Id> m_children; ///< of each part; 0 for those that are not made yet
};

/// A part of a widget, usually without parts of its own, and without an object.
class AccessiblePart : public QAccessibleInterface {
  public:
    explicit AccessiblePart(QWidget& whole);

    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  protected:
    /// Null when it is gone.
    [[nodiscard]] QWidget* whole() const { return m_whole; }

  private:
    QPointer<QWidget> m_whole;
};

/// One of AccessibleParts, on which something can be done.
class AccessibleListPart : public AccessiblePart, public QAccessibleActionInterface {
  public:
    AccessibleListPart(QWidget& whole, int index);

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

  protected:
    [[nodiscard]] int index() const { return m_index; }

  private:
    int m_index;
};

/// Tells assistive programs, if there are any, what has become of the widget's part; of one that does not
/// exist nothing.
void tellOfPart(QWidget& whole, int index, QAccessible::Event what);
/// Its parts are others, or their number is.
void forgetAccessibleParts(QWidget& whole);

} // namespace quorvi
