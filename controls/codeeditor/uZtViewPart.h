#pragma once

#include "uZtLineLook.h"
#include "uZtViewHost.h"

#include <QPoint>
#include <QString>

/// Something that an editor shows beside its text. It is told what happens and asked what it adds
/// to the lines in sight; what it adds goes over what the parts before it have added.
class TZtViewPart {
public:
    explicit TZtViewPart(TZtViewHost &AEdit) : FEdit(AEdit) {}
    virtual ~TZtViewPart() = default;
    TZtViewPart(const TZtViewPart &) = delete;
    TZtViewPart &operator=(const TZtViewPart &) = delete;

    /// The lines from `AFirst` to `ALast` (0-based) are drawn next.
    virtual void BeginRows(int, int) {}
    /// Adds to what is drawn of a line, of which the units from `AFrom` to `ATo` are in sight.
    virtual void AddToLine(int, int, int, TZtLineLook &) {}
    /// The editor shows another text, or has another highlighter or lexer.
    virtual void TextAttached() {}
    /// The text is another one.
    virtual void TextChanged() {}
    /// In how many milliseconds there will be something to do in idle time, 0 for now; -1: nothing.
    virtual int GetWorkDelay() const { return -1; }
    /// Works for some milliseconds of idle time.
    virtual void Advance(int) {}
    /// What is told of a place (column, line) when the mouse rests there; plain text.
    virtual QString GetToolTip(const QPoint &) { return {}; }
    /// Sets the bits of what it shows in an overview's rows (`TZtOverviewRows`).
    virtual void Survey(std::vector<quint32> &) {}

protected:
    TZtViewHost &Edit() const { return FEdit; }

private:
    TZtViewHost &FEdit;
};
