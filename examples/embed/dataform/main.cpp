// A form for the records of a database, with an editor for a field of text.

#include "SnippetForm.h"
#include "Snippets.h"

#include "uZtException.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    try {
        TSnippetForm form(MakeSnippets());
        form.resize(640, 400);
        form.show();
        return QApplication::exec();
    } catch (const EZtException &fault) {
        qCritical("%s", fault.what());
        return 1;
    }
}
