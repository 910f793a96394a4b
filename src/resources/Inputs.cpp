#include "resources/Inputs.h"

#include <QEvent>
#include <QPointer>
#include <QToolTip>

#include <array>

#include "widgets/InputLines.h"

namespace quorvi {

namespace {

// Marks the input on the drawing whose pop-up or name is under the pointer or whose pop-up has the focus.
class InputMarker : public QObject {
  public:
    InputMarker(QWidget& popUp, QWidget& name, MouseView& mouse, int input)
        : QObject(&popUp), m_mouse(&mouse), m_input(input) {
        popUp.installEventFilter(this);
        name.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!m_mouse) // the pop-up loses the focus after the drawing is destroyed with the panel
            return QObject::eventFilter(watched, event);
        switch (event->type()) {
        case QEvent::Enter:
        case QEvent::Leave:
            m_mouse->marks().set(m_input, InputMarks::Pointed, event->type() == QEvent::Enter);
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            m_mouse->marks().set(m_input, InputMarks::Focused, event->type() == QEvent::FocusIn);
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    QPointer<MouseView> m_mouse;
    int m_input;
};

/// Opens it, or says why it cannot be opened.
void openPopUp(PopUpButton& popUp, const MouseView& mouse, int input) {
    if (popUp.isEnabled()) {
        popUp.setFocus(Qt::MouseFocusReason);
        popUp.showPopup();
    } else if (mouse.isEnabled()) {
        QToolTip::showText(mouse.mapToGlobal(mouse.middleOfInput(input).toPoint()), popUp.toolTip(), &popUp);
    }
}

} // namespace

void connectInputs(const Ui::KyvarQuorviPane& ui) {
    const std::array popUps{ui.quorviMenuTop1, ui.quorviMenuTop2, ui.quorviMenuTop3, ui.quorviMenuTop4,
        ui.quorviMenuTop5, ui.quorviMenuTop6, ui.quorviMenuTop7, ui.quorviMenuTop8, ui.quorviMenuTop9};
    const std::array names{ui.labelInput1, ui.labelInput2, ui.labelInput3, ui.labelInput4, ui.labelInput5,
        ui.labelInput6, ui.labelInput7, ui.labelInput8, ui.labelInput9};
    InputLines::Controls controls{};
    for (int input = 1; input <= mouseInputs; ++input) {
        PopUpButton* popUp = popUps.at(std::size_t(input - 1));
        controls.at(std::size_t(input - 1)) = popUp;
        new InputMarker(*popUp, *names.at(std::size_t(input - 1)), *ui.viewMouse, input); // the pop-up's
    }
    new InputLines(*ui.viewMouse, controls); // their page's
    MouseView& mouse = *ui.viewMouse;
    QObject::connect(&mouse, &MouseView::inputClicked, &mouse,
        [popUps, &mouse](int input) { openPopUp(*popUps.at(std::size_t(input - 1)), mouse, input); });
    QObject::connect(&mouse.marks(), &InputMarks::changed, &mouse, [names, &mouse] {
        for (int input = 1; input <= mouseInputs; ++input)
            names.at(std::size_t(input - 1))->setMarked(mouse.isEnabled() && mouse.marks().isMarked(input));
    });
}

} // namespace quorvi
