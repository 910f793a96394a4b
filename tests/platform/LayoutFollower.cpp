// A program with a window that prints the name of the key right of Tab, at first and whenever the layout of
// Qt's platform changes.

#include <QApplication>
#include <QWidget>

#include <cstdio>

#include "keyboard/KeyNames.h"
#include "platform/KeyboardLayoutWatcher.h"

using namespace quorvi;

namespace {

void writeName() {
    GetKeyboardInformation(nullptr);
    std::printf("%s\n", QString::fromStdU16String(GetKeyName(0x0C)).toUtf8().constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.show();
    KeyboardLayoutWatcher watcher(keyboardLayoutOfQtPlatform());
    QObject::connect(&watcher, &KeyboardLayoutWatcher::layoutChanged, &window, writeName);
    writeName();
    return QApplication::exec();
}
