#pragma once

#include "uZtDataSet.h"
#include "uZtTextBreaks.h"

class TStringList;

/// What a control that edits a field as lines shows: which record's field, and the value that it
/// loaded or stored last.
class TZtShownRecord {
public:
    /// The field of the current record was loaded into the lines; null for none.
    void Load(const TField *AField, const TStringList &ALines);
    /// The lines were stored into the field as `ABytes`. `AExact` when these give all of them back.
    void Store(const TField &AField, const TStringList &ALines, const QByteArray &ABytes,
               bool AExact);
    /// The record goes on being shown, in another state or at another place.
    void Follow(const TField &AField);

    /// Whether it is the current record's field. A new record stays the same when it is posted.
    bool IsOf(const TField &AField) const;
    /// Whether the field has the value that is shown.
    bool HasValueOf(const TField &AField) const;
    /// Whether nobody touched the lines since the value was loaded or stored.
    bool IsIn(const TStringList &ALines) const;
    /// Whether the lines are as they were loaded, or were led back to that.
    bool IsLoadedIn(const TStringList &ALines) const;
    /// Whether the record was being edited or inserted when it was shown last.
    bool IsPending() const { return FState >= TDataSetState::dsEdit; }

    /// Makes a format end the lines as the value does that was loaded: CR LF where it has no line
    /// ending, the most frequent one where it has several.
    void GiveBreaks(TZtTextFormat &AFormat, const TStringList &ALines) const;

    /// Whether the field's value, loaded, gives these lines.
    static bool IsShown(const TField &AField, const TStringList &ALines);

private:
    const TDataSet *FDataSet = nullptr; // null: nothing is shown
    QString FFieldName;
    TDataSetState FState = TDataSetState::dsInactive;
    int FCount = 0; // of the records
    int FRecNo = 0;
    TZtValues FKey;
    QByteArray FBytes;
    TZtTextBreaks FBreaks{TZtLineEnding::leCrLf};
    quint64 FRevision = 0;  // of the lines
    bool FExact = false;    // the bytes hold all of the lines
    bool FLoadable = false; // the bytes, loaded, give the lines
    bool FIsBlob = false;
};
