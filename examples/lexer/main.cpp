// Shows an INI file, or the sample beside this source, in the colours of a scheme.
#include "IniLexer.h"

#include "uZtCodeEdit.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    TZtCodeEdit editor;
    editor.SetCorrections(ZtAllCorrections());
    editor.SetExtras(ZtAllExtras());
    editor.SetScheme(TZtColorScheme::Find(QStringLiteral("Light")));
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
