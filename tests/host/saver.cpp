// Saves two texts over each other until it is killed: saver FILE

#include "FileStore.h"
#include "kill_texts.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString path = QCoreApplication::arguments().value(1);
    std::puts("ready");
    std::fflush(stdout);
    for (;;)
        for (const bool second : {true, false})
            ZtSaveFile(path, TextToSave(second));
}
