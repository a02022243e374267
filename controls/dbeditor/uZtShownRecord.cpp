#include "uZtShownRecord.h"

#include "uZtStringList.h"
#include "uZtUtf8.h"

#include <algorithm>

namespace {

constexpr int Utf8CodePage = 65001;

bool Gives(const QByteArray &ABytes, bool AIsBlob, const TStringList &ALines)
{
    TZtStringStream stream;
    stream.LoadFromBytes(ABytes, AIsBlob ? -1 : Utf8CodePage);
    TStringList lines;
    lines.SetText(stream.GetWString());
    if (lines.GetCount() != ALines.GetCount())
        return false;
    for (int i = 0; i < lines.GetCount(); ++i)
        if (lines.View(i) != ALines.View(i))
            return false;
    return true;
}

// The columns that tell the record from others while this field is edited.
std::vector<int> KeyBeside(const TField &AField)
{
    std::vector<int> key = AField.GetDataSet()->GetRecordSource()->KeyColumns();
    std::erase(key, AField.GetIndex());
    return key;
}

// Where the field is a part of the key, the number says the rest.
bool IsInKey(const TField &AField)
{
    const std::vector<int> key = AField.GetDataSet()->GetRecordSource()->KeyColumns();
    return std::find(key.begin(), key.end(), AField.GetIndex()) != key.end();
}

TZtValues KeyOf(const TField &AField)
{
    TZtValues values;
    for (const int column : KeyBeside(AField))
        values.push_back(AField.GetDataSet()->GetFields(column)->GetValue());
    return values;
}

} // namespace

void TZtShownRecord::Load(const TField *AField, const TStringList &ALines)
{
    *this = {};
    if (!AField)
        return;
    Follow(*AField);
    FBytes = AField->GetAsBytes();
    FIsBlob = AField->IsBlob();
    TZtStringStream stream;
    stream.LoadFromBytes(FBytes, FIsBlob ? -1 : Utf8CodePage);
    FBreaks.Take(stream);
    FRevision = ALines.GetRevision();
    FExact = FLoadable = true;
}

void TZtShownRecord::Store(const TField &AField, const TStringList &ALines,
                           const QByteArray &ABytes, bool AExact)
{
    // A number is not stored as it was written. What is no such value is another one because
    // somebody has put it there meanwhile.
    const int type = AField.GetValue().typeId();
    const bool asWritten = type == QMetaType::QString || type == QMetaType::QByteArray;
    FBytes = asWritten ? ABytes : AField.GetAsBytes();
    FRevision = ALines.GetRevision();
    FExact = AExact && AField.GetAsBytes() == ABytes;
    FLoadable = FExact && Gives(ABytes, FIsBlob, ALines);
}

void TZtShownRecord::Follow(const TField &AField)
{
    FDataSet = AField.GetDataSet();
    FFieldName = AField.GetFieldName();
    FState = FDataSet->GetState();
    FCount = FDataSet->GetRecordCount();
    FRecNo = FDataSet->GetRecNo();
    FKey = KeyOf(AField);
}

bool TZtShownRecord::IsOf(const TField &AField) const
{
    const TDataSet *dataSet = AField.GetDataSet();
    if (!FDataSet || dataSet != FDataSet || AField.GetFieldName() != FFieldName)
        return false;
    const bool inserting = dataSet->GetState() == TDataSetState::dsInsert;
    if (FState == TDataSetState::dsInsert)
        return inserting || dataSet->GetRecordCount() == FCount + 1;
    return !inserting && (!IsInKey(AField) || dataSet->GetRecNo() == FRecNo) &&
           KeyOf(AField) == FKey;
}

bool TZtShownRecord::HasValueOf(const TField &AField) const
{
    return AField.GetAsBytes() == FBytes;
}

bool TZtShownRecord::IsIn(const TStringList &ALines) const
{
    return FExact && FRevision == ALines.GetRevision();
}

bool TZtShownRecord::IsLoadedIn(const TStringList &ALines) const
{
    return FLoadable && Gives(FBytes, FIsBlob, ALines);
}

void TZtShownRecord::GiveBreaks(TZtTextFormat &AFormat, const TStringList &ALines) const
{
    FBreaks.GiveTo(AFormat, ALines);
}

bool TZtShownRecord::IsShown(const TField &AField, const TStringList &ALines)
{
    return Gives(AField.GetAsBytes(), AField.IsBlob(), ALines);
}
