#include "golden.h"

#include <QDir>
#include <QFile>

QString GoldenFolder() { return QStringLiteral(ZT_SOURCE_DIR "/tests/golden"); }

QList<TGoldenCase> GoldenCases()
{
    QList<TGoldenCase> cases;
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const QString name = QString::fromLatin1(language.Name) + u'/';
        const QString filter = QStringLiteral("*.") + QLatin1String(language.Extension);
        for (const QString &folder : {GoldenFolder(), QStringLiteral(ZT_SOURCE_DIR "/examples")}) {
            const QDir dir(folder + u'/' + name);
            for (const QString &file : dir.entryList({filter}, QDir::Files, QDir::Name))
                cases.append({&language, name + file, dir.filePath(file),
                              GoldenFolder() + u'/' + name + file + QStringLiteral(".tokens")});
        }
    }
    return cases;
}

QString ReadTextFile(const QString &AFileName)
{
    QFile file(AFileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString TokenText(const TGoldenCase &ACase)
{
    const auto reader = ACase.Language->CreateReader();
    QList<int> lineKinds;
    QString text;
    const auto records =
        ZtReadTokens(*reader, ZtTokenLines(ReadTextFile(ACase.SourceFile)), lineKinds);
    for (const TZtTokenRecord &record : records)
        text += record.ToString() + u'\n';
    return text;
}
