// Shows an INI file, or the sample beside this source, in the desktop's light or dark colours.
#include "IniLexer.h"

#include "uZtCodeEdit.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;
    const QStringList arguments = QApplication::arguments();
    TZtCodeEdit editor;
    editor.SetCorrections(ZtAllCorrections());
    editor.SetExtras(ZtAllExtras());
    editor.SetScheme(TZtColorScheme::Find(dark ? "Dark" : "Light"));
    editor.SetParser(new TIniLexer(&editor));
    try {
        editor.LoadFromFile(arguments.value(1, QStringLiteral(SAMPLE)));
    } catch (const EZtException &e) {
        qCritical("%s", qUtf8Printable(e.Message()));
        return 1;
    }
    editor.resize(640, 400);
    editor.show();
    return QApplication::exec();
}
