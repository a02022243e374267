// An editor in a window of its own, with all that it can do.

#include "uZtCodeEdit.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;

    TZtCodeEdit editor;
    editor.SetCorrections(ZtAllCorrections());
    editor.SetExtras(ZtAllExtras());
    editor.SetScheme(TZtColorScheme::Find(dark ? "Dark" : "Light"));
    editor.SetLanguage("Pascal");
    editor.SetText("begin\n  WriteLn('Hello'); // and good day\nend.\n");
    editor.resize(640, 400);
    editor.show();
    return QApplication::exec();
}
