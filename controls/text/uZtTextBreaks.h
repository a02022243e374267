#pragma once

#include "uZtExport.h"
#include "uZtStringStream.h"

class TStringList;

/// How a text ended its lines before it was taken apart into them, so that they give it back.
///
/// The text that was taken is given back to the last break as long as the lines are those that it
/// was taken apart into. Other lines end as most of its lines did, the last one only if it did.
class ZT_EDITOR_EXPORT TZtTextBreaks {
public:
    /// `AUsual` ends the lines where a text without breaks was taken, or none.
    explicit TZtTextBreaks(TZtLineEnding AUsual = TZtLineEnding::leLf) : FUsual(AUsual)
    {
        Take(QString());
    }

    /// Takes over how `S` ends its lines. It is kept if its lines alone do not give it back.
    void Take(const QString &S);
    /// The same of a text that was read.
    void Take(const TZtStringStream &AStream);

    /// Makes a format end the lines so. Lines that hold nothing are a text without a break.
    void GiveTo(TZtTextFormat &AFormat, const TStringList &ALines) const;
    /// The lines as one text.
    QString Join(const TStringList &ALines) const;
    /// Whether `Join` gives `S`. Does not make a text.
    bool Gives(const QString &S, const TStringList &ALines) const;

private:
    TZtTextFormat FormatOf(const TStringList &ALines) const;

    TZtLineEnding FUsual;
    TZtTextFormat FFormat; // of which the line endings count
    QString FExact;        // the text that was taken; null if the lines give it back
};
