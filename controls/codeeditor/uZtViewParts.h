#pragma once

#include "uZtDecorations.h"
#include "uZtViewPart.h"

/// The bits of an overview's rows, besides those of the marks of lines.
namespace TZtOverviewBit {
inline constexpr quint32 Error = 1u << 20;
inline constexpr quint32 Warning = 1u << 21;
inline constexpr quint32 Information = 1u << 22;
inline constexpr quint32 Changed = 1u << 23;
inline constexpr quint32 Saved = 1u << 24;
inline constexpr quint32 Match = 1u << 25;
inline constexpr quint32 Word = 1u << 26;
} // namespace TZtOverviewBit

/// A background for the caret's line.
class TZtCurrentLinePart final : public TZtViewPart {
public:
    using TZtViewPart::TZtViewPart;
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;
};

/// Blanks and tabs that are seen, everywhere or in the selection.
class TZtBlanksPart final : public TZtViewPart {
public:
    using TZtViewPart::TZtViewPart;
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;
};

/// The decorations of the host and the ranges of the diagnostics.
class TZtDecorationsPart final : public TZtViewPart {
public:
    using TZtViewPart::TZtViewPart;
    void BeginRows(int AFirst, int ALast) override;
    void AddToLine(int ALine, int AFrom, int ATo, TZtLineLook &ALook) override;
    QString GetToolTip(const QPoint &APlace) override;
    void Survey(std::vector<quint32> &ARows) override;

private:
    struct TShown {
        TZtPlacedDecoration Placed;
        TZtDecorationStyle Style;
    };
    std::vector<TShown> FShown; // in the lines that are drawn
};
