// A checker runs in the background and shows what it finds while the user types.

#include "CheckedWindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    TCheckedWindow window;
    window.resize(640, 400);
    window.show();
    return QApplication::exec();
}
