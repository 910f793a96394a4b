#include "support/WindowTools.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

namespace quorvi::test {

void clickButton(QAbstractButton* button) {
    if (!button->isEnabled() || !button->isVisible())
        qFatal("%s cannot be clicked", qPrintable(button->objectName()));
    // A check box takes clicks on its square and its text only.
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

void whenSheetIsUp(const QWidget* window, const char* name, std::function<void(QDialog*)> action) {
    auto* timer = new QTimer(const_cast<QWidget*>(window));
    QElapsedTimer waiting;
    waiting.start();
    QObject::connect(timer, &QTimer::timeout, timer, [=, action = std::move(action)] {
        auto* sheet = window->findChild<QDialog*>(QLatin1String(name));
        if (!sheet || !sheet->isVisible() || !sheet->isActiveWindow()) {
            if (waiting.hasExpired(kWindowPatienceMs))
                qFatal("the sheet %s does not come up", name);
            return;
        }
        timer->deleteLater();
        timer->stop();
        action(sheet);
    });
    timer->start(5);
}

void clickInSheet(const QWidget* window, const char* sheet, const char* button) {
    whenSheetIsUp(
        window, sheet, [button](QDialog* dialog) { clickButton(outlet<QAbstractButton>(dialog, button)); });
}

} // namespace quorvi::test
