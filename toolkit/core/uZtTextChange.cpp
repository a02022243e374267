#include "uZtTextChange.h"

#include "uZtLineScan.h"

TZtTextPiece::TZtTextPiece(const QString &AText)
{
    const auto breaks = ZtCountBreaks(AText.utf16(), AText.size());
    if (breaks.Lf + breaks.Cr + breaks.CrLf == 0) {
        FLine = AText;
        return;
    }
    ZtForEachLine(QStringView(AText), [this](QStringView line) { FLines.AppendCopy(line); });
    const QChar last = AText.back();
    if (last == u'\r' || last == u'\n')
        FLines.AppendCopy(QStringView());
}

TZtTextPiece::TZtTextPiece(const TZtTextPiece &AOther)
    : FLine(AOther.FLine), FObject(AOther.FObject), FHasObjects(AOther.FHasObjects),
      FLines(AOther.FLines.Copy(0, AOther.FLines.GetCount()))
{
}

TZtTextPiece &TZtTextPiece::operator=(TZtTextPiece AOther)
{
    FLine.swap(AOther.FLine);
    FObject = AOther.FObject;
    FHasObjects = AOther.FHasObjects;
    FLines.Swap(AOther.FLines);
    return *this;
}

QString TZtTextPiece::GetLine(int AIndex) const
{
    return FLines.GetCount() == 0 ? FLine : FLines[AIndex].ToString();
}

int TZtTextPiece::GetObject(int AIndex) const
{
    return FLines.GetCount() == 0 ? FObject : FLines[AIndex].Object;
}

QString TZtTextPiece::GetText(QLatin1StringView ABreak) const
{
    QString text = FLine;
    for (qsizetype i = 0; i < FLines.GetCount(); ++i) {
        if (i > 0)
            text += ABreak;
        FLines[i].AppendTo(0, FLines[i].Length, text);
    }
    return text;
}

qint64 TZtTextPiece::GetBytes() const { return FLine.size() * 2 + FLines.GetBytes(); }

QPoint TZtTextChange::Map(const QPoint &APlace, TZtAnchorSide ASide) const
{
    if (ZtIsBefore(APlace, Start))
        return APlace;
    if (!ZtIsBefore(RemovedEnd, APlace))
        return ASide == TZtAnchorSide::asBefore ? Start : InsertedEnd;
    const int column =
        APlace.y() == RemovedEnd.y() ? APlace.x() - RemovedEnd.x() + InsertedEnd.x() : APlace.x();
    return {column, APlace.y() - RemovedEnd.y() + InsertedEnd.y()};
}
