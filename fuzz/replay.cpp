// Stands in for a fuzzing engine: hands every file of the given folders to the harness.
#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize);

int main(int argc, char *argv[])
{
    int files = 0;
    for (int i = 1; i < argc; ++i) // an engine's option is no folder
        for (QDirIterator entries(QString::fromLocal8Bit(argv[i]), QDir::Files,
                                  QDirIterator::Subdirectories);
             entries.hasNext(); ++files) {
            QFile file(entries.next());
            if (!file.open(QIODevice::ReadOnly))
                return std::fprintf(stderr, "%s: %s\n", qPrintable(file.fileName()),
                                    qPrintable(file.errorString()));
            const QByteArray data = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(data.constData()),
                                   size_t(data.size()));
        }
    std::printf("%d files\n", files);
    return files == 0;
}
