#include "LineDiff.h"

#include "uZtStringList.h"
#include "uZtStringStream.h"

#include <QFile>
#include <QTimer>

#include <utility>

namespace {

constexpr qint64 LongestText = 8 << 20;    // UTF-16 units
constexpr qsizetype LongestDiff = 1 << 20; // bytes
constexpr int Patience = 10'000;           // milliseconds

qint64 SizeOf(const TStringList &AText)
{
    qint64 size = 0;
    for (int i = 0; i < AText.GetCount() && size <= LongestText; ++i)
        size += AText.GetLength(i) + 1;
    return size;
}

bool Write(const QString &APath, const TStringList &AText)
{
    TZtTextEncoder encoder(TZtTextFormat{});
    for (int i = 0; i < AText.GetCount(); ++i)
        encoder.AddLine(AText.View(i));
    const QByteArray bytes = encoder.Finish();
    QFile file(APath);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

TLineDiff::TLineDiff(QObject *AParent) : QObject(AParent)
{
    connect(&FProcess, &QProcess::readyReadStandardOutput, this, &TLineDiff::Read);
    connect(&FProcess, &QProcess::finished, this, &TLineDiff::End);
    connect(&FProcess, &QProcess::errorOccurred, this, &TLineDiff::End);
    QTimer::singleShot(Patience, this, &TLineDiff::End);
}

TLineDiff::~TLineDiff()
{
    FProcess.disconnect(this);
    FProcess.kill();
    FProcess.waitForFinished();
}

void TLineDiff::Start(const TStringList &ABefore, const QString &ABeforeName,
                      const TStringList &AAfter, const QString &AAfterName)
{
    const QString before = FFolder.filePath(QStringLiteral("before"));
    const QString after = FFolder.filePath(QStringLiteral("after"));
    if (SizeOf(ABefore) + SizeOf(AAfter) > LongestText || !Write(before, ABefore) ||
        !Write(after, AAfter)) {
        QMetaObject::invokeMethod(this, &TLineDiff::End, Qt::QueuedConnection);
        return;
    }
    const QString label = QStringLiteral("--label");
    FProcess.setStandardErrorFile(QProcess::nullDevice());
    FProcess.start(QStringLiteral("diff"), {QStringLiteral("-a"), QStringLiteral("-U3"), label,
                                            ABeforeName, label, AAfterName, before, after});
}

void TLineDiff::Read()
{
    FOutput += FProcess.readAllStandardOutput();
    if (FOutput.size() > LongestDiff)
        End();
}

void TLineDiff::End()
{
    if (std::exchange(FEnded, true))
        return;
    const bool running = FProcess.state() != QProcess::NotRunning;
    if (running && FOutput.size() <= LongestDiff)
        FOutput.clear(); // a part that looks whole
    else if (!running && FProcess.isOpen())
        FOutput += FProcess.readAllStandardOutput();
    if (FOutput.size() > LongestDiff) {
        FOutput.truncate(FOutput.lastIndexOf('\n', LongestDiff) + 1);
        FOutput += "…\n";
    }
    Q_EMIT Finished(QString::fromUtf8(FOutput));
}
