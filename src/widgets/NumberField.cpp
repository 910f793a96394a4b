#include "widgets/NumberField.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include <utility>

#include "widgets/KyvarQuorviSlider.h"

namespace quorvi {

namespace {

constexpr QLatin1String kNumber("%d");

} // namespace

NumberField::NumberField(QWidget* parent) : QSpinBox(parent) {
    setKeyboardTracking(false);
    setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    setFocusPolicy(Qt::StrongFocus);
    // The panel writes its numbers in these digits everywhere, without separators.
    setLocale(QLocale::c());
    connect(this, QOverload<int>::of(&QSpinBox::valueChanged), this, &NumberField::choose);
    chooseDirection();
}

void NumberField::join(KyvarQuorviSlider& slider, Scale scale) {
    m_slider = &slider;
    m_scale = std::move(scale);
    if (!m_scale.numberOfValue)
        m_scale = {.numberOfValue = [](int value) { return value; },
            .valueOfNumber = [&slider](int number) { return slider.nearestStep(number); }};
    {
        const QSignalBlocker quiet(this); // the range alone chooses nothing
        setRange(m_scale.numberOfValue(slider.minimum()), m_scale.numberOfValue(slider.maximum()));
    }
    setSingleStep(slider.singleStep());
    setEnabled(slider.isEnabled());
    slider.installEventFilter(this);
    connect(&slider, &KyvarQuorviSlider::valueChanged, this, &NumberField::showSlider);
    showSlider();
}

QString NumberField::format() const {
    return prefix() + kNumber + suffix();
}

void NumberField::setFormat(const QString& format) {
    const auto place = format.indexOf(kNumber);
    setPrefix(place < 0 ? QString() : format.left(place));
    setSuffix(place < 0 ? QString() : format.mid(place + kNumber.size()));
}

void NumberField::stepBy(int steps) {
    if (!m_slider)
        return QSpinBox::stepBy(steps);
    interpretText(); // what has been typed comes first
    m_slider->moveBySteps(steps);
    selectAll();
}

void NumberField::choose(int number) {
    if (!m_slider)
        return;
    if (m_slider->isEnabled()) // assistive programs set numbers of what is disabled, too
        m_slider->setSliderPosition(m_scale.valueOfNumber(number));
    showSlider(); // which may stand elsewhere than was typed
}

void NumberField::showSlider() {
    const QSignalBlocker quiet(this);
    setValue(m_scale.numberOfValue(m_slider->value()));
}

bool NumberField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::EnabledChange)
        setEnabled(m_slider->isEnabled());
    return QSpinBox::eventFilter(watched, event);
}

QValidator::State NumberField::validate(QString& input, int& position) const {
    for (QChar& letter : input)
        if (letter.isDigit())
            letter = QLatin1Char(char('0' + letter.digitValue()));
    return QSpinBox::validate(input, position);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
    const bool takesBackNothing = event->matches(QKeySequence::Undo) && !lineEdit()->isUndoAvailable();
    const bool repeatsNothing = event->matches(QKeySequence::Redo) && !lineEdit()->isRedoAvailable();
    if (takesBackNothing || repeatsNothing)
        event->ignore(); // the panel's own undo is meant
    else
        QSpinBox::keyPressEvent(event);
}

/// Adwaita covers the buttons of a mirrored field with its text; the minus then stands before the number like
/// a sign. Numbers are written from the left anyway.
void NumberField::chooseDirection() {
    if (QApplication::style()->objectName().startsWith(QLatin1String("adwaita")))
        setLayoutDirection(Qt::LeftToRight);
    else
        unsetLayoutDirection();
}

void NumberField::changeEvent(QEvent* event) {
    QSpinBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        chooseDirection();
}

void NumberField::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore(); // it scrolls the page
}

} // namespace quorvi
