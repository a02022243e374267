#include "golden.h"

#include <QFile>

#include <cstdio>

int main()
{
    for (const TGoldenCase &golden : GoldenCases()) {
        const QString text = TokenText(golden);
        if (text == ReadTextFile(golden.TokenFile))
            continue;
        QFile file(golden.TokenFile);
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.flush()) {
            std::fprintf(stderr, "%s: %s\n", qPrintable(golden.TokenFile),
                         qPrintable(file.errorString()));
            return 1;
        }
        std::printf("%s\n", qPrintable(golden.Name));
    }
    return 0;
}
