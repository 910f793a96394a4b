#include "resources/Inputs.h"

#include <QEvent>
#include <QPointer>

#include "widgets/InputLines.h"

namespace quorvi {

namespace {

// Tells the drawing which input the pop-up under the pointer or with the focus belongs to.
class InputMarker : public QObject {
  public:
    InputMarker(QWidget& popUp, MouseView& mouse, int input)
        : QObject(&popUp), m_mouse(&mouse), m_input(input) {
        popUp.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!m_mouse) // the panel goes, and takes the focus from the pop-up after the drawing
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

} // namespace

void connectInputs(const Ui::KyvarQuorviPane& ui) {
    const std::array popUps{ui.quorviMenuTop1, ui.quorviMenuTop2, ui.quorviMenuTop3, ui.quorviMenuTop4,
        ui.quorviMenuTop5, ui.quorviMenuTop6, ui.quorviMenuTop7, ui.quorviMenuTop8, ui.quorviMenuTop9};
    InputLines::Controls controls{};
    for (int input = 1; input <= mouseInputs; ++input) {
        PopUpButton* popUp = popUps.at(std::size_t(input - 1));
        controls.at(std::size_t(input - 1)) = popUp;
        new InputMarker(*popUp, *ui.viewMouse, input); // the pop-up's
    }
    new InputLines(*ui.viewMouse, controls); // their page's
    QObject::connect(ui.viewMouse, &MouseView::inputClicked, ui.viewMouse, [controls](int input) {
        auto* popUp = qobject_cast<PopUpButton*>(controls.at(std::size_t(input - 1)));
        popUp->setFocus(Qt::MouseFocusReason);
        popUp->showPopup();
    });
}

} // namespace quorvi
