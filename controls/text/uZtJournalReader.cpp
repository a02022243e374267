#include "uZtJournalReader.h"

#include "uZtStringStream.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

namespace {

// As long as any header can be: a path and what the host has to say of the format.
constexpr qint64 LongestHeader = 1 << 20;

TZtJournalKind KindOf(QByteArrayView ARecord)
{
    return ARecord.isEmpty() ? TZtJournalKind::jkHeader : TZtJournalKind(ARecord[0]);
}

std::optional<TZtJournalHeader> HeaderOf(const std::optional<QByteArrayView> &ARecord)
{
    if (!ARecord)
        return {};
    std::optional<TZtJournalRecord> record = ZtDecodeJournalRecord(*ARecord);
    if (!record || record->Kind != TZtJournalKind::jkHeader)
        return {};
    return std::move(record->Header);
}

bool HasBreak(const QString &ALine) { return ALine.contains(u'\n') || ALine.contains(u'\r'); }

QByteArray HashOf(const TStringList &AText)
{
    TZtJournalTextHash hash;
    for (int i = 0; i < AText.GetCount(); ++i)
        hash.AddLine(AText.GetStrings(i));
    hash.AddLine(QString()); // behind the last break
    return hash.Result();
}

TZtTextPiece PieceOf(const QStringList &ALines)
{
    if (std::none_of(ALines.begin(), ALines.end(), HasBreak))
        return TZtTextPiece(ALines.join(u'\n'));
    TStringList list;
    for (const QString &line : ALines)
        list.Add(line);
    return list.GetPiece({0, 0}, {int(ALines.last().size()), int(ALines.size()) - 1});
}

} // namespace

// Where what is restored begins.
struct TZtJournalReader::TStart {
    size_t First = 0;    // the first record to apply
    QByteArray Base;     // what is loaded before that
    QByteArray TextHash; // of what the base gives; empty where that is certain
};

std::optional<TZtJournalHeader> TZtJournalReader::ReadHeader(const QString &APath)
{
    QFile file(APath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(LongestHeader);
    return HeaderOf(TZtJournalUnframer(bytes).Next());
}

TZtJournalReader::TZtJournalReader(const QString &APath) : FBytes(ZtReadFile(APath))
{
    TZtJournalUnframer unframer(FBytes);
    std::optional<TZtJournalHeader> header = HeaderOf(unframer.Next());
    if (!header)
        throw EStreamError(
            QCoreApplication::translate("Journal", "\"%1\" is no journal.").arg(APath));
    FHeader = std::move(*header);
    while (const std::optional<QByteArrayView> record = unframer.Next())
        FRecords.push_back(*record);
    FComplete = unframer.GetLeft() == 0;
}

// The places from which on the text can be had, the best one last.
std::vector<TZtJournalReader::TStart>
TZtJournalReader::FindStarts(const std::optional<QByteArray> &AFile, TZtRestored &AResult) const
{
    const QByteArray hash = AFile ? ZtJournalHash(*AFile) : QByteArray();
    const bool neverThere = FHeader.Size == 0 && !AFile;
    AResult.IsFileChanged = !FHeader.Path.isEmpty() && hash != FHeader.Hash && !neverThere;
    std::vector<TStart> starts;
    if (AFile && hash == FHeader.Hash)
        starts.push_back({0, *AFile, FHeader.TextHash});
    for (size_t i = 0; i < FRecords.size(); ++i) {
        const std::optional<TZtJournalRecord> record = ZtDecodeJournalRecord(FRecords[i]);
        if (!record)
            break;
        if (record->Kind == TZtJournalKind::jkBase)
            starts.push_back({i + 1, record->Bytes, {}});
        if (record->IsWholeText)
            starts = {{i, {}, {}}};
        if (record->Kind == TZtJournalKind::jkSaving && AFile && record->Bytes == hash) {
            starts.push_back({i + 1, *AFile, record->TextHash});
            AResult.IsFileChanged = false;
        }
    }
    return starts;
}

// Answers whether it is the text that the changes are made to. A last line that is empty may have
// left no trace in a file.
bool TZtJournalReader::LoadBase(const TStart &AStart, const TLoad &ALoad, TStringList &AText)
{
    if (!AStart.Base.isEmpty())
        ALoad(AStart.Base, AText);
    if (AStart.TextHash.isEmpty() || HashOf(AText) == AStart.TextHash)
        return true;
    AText.Add(QString());
    return HashOf(AText) == AStart.TextHash;
}

// Answers whether all went well; if not, the text is as before the record that is wrong.
bool TZtJournalReader::Apply(size_t AFirst, TStringList &AText) const
{
    for (size_t i = AFirst; i < FRecords.size(); ++i) {
        const std::optional<TZtJournalRecord> record = ZtDecodeJournalRecord(FRecords[i]);
        if (!record)
            return false;
        if (record->Kind != TZtJournalKind::jkChange)
            continue;
        try {
            AText.ReplaceText(record->Start,
                              record->IsWholeText ? AText.GetEnd() : record->RemovedEnd,
                              PieceOf(record->Lines));
        } catch (const EStringListError &) {
            return false;
        }
    }
    return true;
}

// What was typed or pasted in one place is one piece.
void TZtJournalReader::CollectTyped(TStringList &AText) const
{
    QPoint end(-1, -1); // of the piece before
    for (const QByteArrayView bytes : FRecords) {
        const std::optional<TZtJournalRecord> record = ZtDecodeJournalRecord(bytes);
        if (!record || record->Kind != TZtJournalKind::jkChange)
            continue;
        QStringList lines = record->Lines;
        if (lines == QStringList(QString()))
            continue; // nothing but a removal
        const QPoint start = record->Start;
        const int from = lines.size() == 1 ? start.x() : 0;
        const bool goesOn = end == start;
        end = QPoint(from + int(lines.last().size()), start.y() + int(lines.size()) - 1);
        if (goesOn) {
            const int last = AText.GetCount() - 1;
            AText.SetStrings(last, AText.GetStrings(last) + lines.takeFirst());
        }
        for (const QString &line : lines)
            AText.Add(line);
    }
}

TZtRestored TZtJournalReader::Restore(const std::optional<QByteArray> &AFile, const TLoad &ALoad,
                                      TStringList &AText) const
{
    TZtRestored result;
    result.IsComplete = FComplete;
    const std::vector<TStart> starts = FindStarts(AFile, result);
    if (std::none_of(FRecords.begin(), FRecords.end(), [](QByteArrayView record) {
            return KindOf(record) == TZtJournalKind::jkChange;
        }))
        return result;
    const auto start = std::find_if(starts.rbegin(), starts.rend(), [&](const TStart &one) {
        AText.Clear();
        return LoadBase(one, ALoad, AText);
    });
    if (start == starts.rend()) {
        AText.Clear();
        result.Text = TZtRestoredText::rtTyped;
        CollectTyped(AText);
        return result;
    }
    result.Text = TZtRestoredText::rtWhole;
    result.IsComplete = Apply(start->First, AText) && result.IsComplete;
    return result;
}
