#include "widgets/ViewActivation.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTabWidget>

#include "widgets/Section.h"

namespace quorvi {

namespace {

template <typename... Kinds>
bool isOneOf(const QWidget* view) {
    return (... || (qobject_cast<const Kinds*>(view) != nullptr));
}

/// An inactive text has the theme's colour for disabled ones; an active one follows the theme.
void recolour(QLabel* label, bool active) {
    QPalette palette;
    if (!active)
        for (const auto role : {QPalette::WindowText, QPalette::PlaceholderText}) // the second is of hints
            palette.setBrush(
                role, QApplication::palette(label).brush(QPalette::Disabled, QPalette::WindowText));
    label->setPalette(palette);
}

bool isControl(const QWidget* view) {
    return isOneOf<QAbstractButton, QAbstractSlider, QComboBox, QAbstractItemView, QAbstractSpinBox,
        QLineEdit, QProgressBar>(view);
}

} // namespace

void makeViewActive(QWidget* view, bool active) {
    // What cannot be changed can be looked at.
    if (!view || qobject_cast<QScrollBar*>(view))
        return;
    if (auto* tabs = qobject_cast<QTabWidget*>(view)) {
        for (int index = 0; index < tabs->count(); ++index)
            makeViewActive(tabs->widget(index), active);
    } else if (auto* label = qobject_cast<QLabel*>(view)) {
        recolour(label, active);
    } else if (isControl(view)) {
        view->setEnabled(active);
    } else {
        if (auto* section = qobject_cast<Section*>(view))
            section->setHeadingActive(active);
        const auto children = view->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* child : children)
            if (!child->isWindow())
                makeViewActive(child, active);
    }
}

} // namespace quorvi
