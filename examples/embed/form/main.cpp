// A form that was made in Qt Designer, with an editor in it.

#include "MacroForm.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    TMacroForm form;
    QObject::connect(&form, &QDialog::accepted, &form, [&form] {
        const TMacro macro = form.GetMacro();
        qInfo("%s (%s)\n%s", qUtf8Printable(macro.Name), qUtf8Printable(macro.Language),
              qUtf8Printable(macro.Source));
    });
    form.show();
    return QApplication::exec();
}
