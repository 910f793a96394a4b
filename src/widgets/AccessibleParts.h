// Accessible interfaces of a widget that draws a list of parts itself.
#pragma once

#include <QAccessibleWidget>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace quorvi {

/// A list of parts. Each is created when first queried, and then owned by the toolkit.
class AccessibleParts : public QAccessibleWidget {
  public:
    explicit AccessibleParts(QWidget* widget);
    ~AccessibleParts() override;

    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

    /// Call this when the parts or their number have changed.
    void forgetChildren();

  protected:
    /// The toolkit owns the returned interface.
    [[nodiscard]] virtual QAccessibleInterface* makeChild(int index) const = 0;

  private:
    mutable std::vector<QAccessible::Id> m_children; ///< of each part; 0 until it is created
};

/// A part of a widget, without an object and usually without child parts.
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
    /// Null if it no longer exists.
    [[nodiscard]] QWidget* whole() const { return m_whole; }

  private:
    QPointer<QWidget> m_whole;
};

/// One of AccessibleParts, with actions.
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

/// Notifies assistive programs, if any, of an event of the widget's part. Does nothing if the part does not
/// exist.
void tellOfPart(QWidget& whole, int index, QAccessible::Event what);
/// Call this when the widget's parts or their number have changed.
void forgetAccessibleParts(QWidget& whole);

} // namespace quorvi
