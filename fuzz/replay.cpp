// Stands in for a fuzzing engine: hands every file of the given files and folders to the harness.
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize);

static int Replay(const QString &AFileName)
{
    QFile file(AFileName);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(AFileName), qPrintable(file.errorString()));
        return 1;
    }
    const QByteArray data = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(data.constData()),
                           size_t(data.size()));
    return 0;
}

int main(int argc, char *argv[])
{
    int files = 0, failures = 0;
    for (int i = 1; i < argc; ++i) {
        const QString name = QString::fromLocal8Bit(argv[i]);
        if (name.startsWith(u'-')) // an option of the engine
            continue;
        if (!QDir(name).exists()) {
            failures += Replay(name);
            ++files;
            continue;
        }
        QDirIterator entries(name, QDir::Files, QDirIterator::Subdirectories);
        for (; entries.hasNext(); ++files)
            failures += Replay(entries.next());
    }
    std::printf("%d files\n", files);
    return failures > 0 || files == 0;
}
