// A minimal program with a Qt window, as large as the settings application's.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(760, 560);
    window.show();
    return QApplication::exec();
}
