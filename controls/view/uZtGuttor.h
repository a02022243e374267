#pragma once

#include "uZtExport.h"
#include "uZtGuttorLook.h"
#include "uZtLineChanges.h"
#include "uZtLineMarks.h"

#include <QIcon>
#include <QRgb>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QPainter;
class QRectF;
class TZtTextPainter;

/// What the gutter stands beside. Lines are 0-based, sizes in pixels.
struct TZtGuttorSight {
    int LineCount = 0;  ///< of the text
    int CaretLine = 0;  ///< the caret's, 0-based
    int CharWidth = 0;  ///< a character cell's
    int LineHeight = 0; ///< a row's
};

/// A column of the gutter. A host may derive one of its own.
class ZT_EDITOR_EXPORT TZtGuttorColumn {
public:
    virtual ~TZtGuttorColumn() = default;
    /// In pixels.
    virtual int GetWidth(const TZtGuttorSight &ASight) const = 0;
    /// What is shown beside a line, as a number. Lines with equal ones look alike.
    virtual quint64 GetCell(int ALine, const TZtGuttorSight &ASight) const = 0;
    /// Draws what a number stands for into the column's part of a row. `AText` has the editor's
    /// font.
    virtual void Draw(QPainter &APainter, TZtTextPainter &AText, const QRectF &ACell,
                      quint64 AValue, const TZtGuttorLook &ALook) const = 0;
    /// What is told of a line when the mouse rests beside it; plain text.
    virtual QString GetToolTip(int) const { return {}; }

    bool GetVisible() const { return FVisible; } ///< a hidden column takes no room
    void SetVisible(bool Value) { FVisible = Value; }

private:
    bool FVisible = true;
};

/// 1-based numbers; that of the caret's line stands out.
class ZT_EDITOR_EXPORT TZtNumberColumn final : public TZtGuttorColumn {
public:
    int GetWidth(const TZtGuttorSight &ASight) const override;
    quint64 GetCell(int ALine, const TZtGuttorSight &ASight) const override;
    void Draw(QPainter &APainter, TZtTextPainter &AText, const QRectF &ACell, quint64 AValue,
              const TZtGuttorLook &ALook) const override;
};

/// Marks, each of a shape of its own. Of several on a line those that matter most are seen.
class ZT_EDITOR_EXPORT TZtMarkColumn final : public TZtGuttorColumn {
public:
    /// `AMarks` answers a line's.
    explicit TZtMarkColumn(std::function<TZtLineMarkSet(int ALine)> AMarks)
        : FMarks(std::move(AMarks))
    {
    }
    /// How a kind of mark is drawn: a host's own, or another picture for one of the others. A null
    /// icon gives the bundled shape back; a host's kind has none then.
    void SetIcon(TZtLineMark AKind, const QIcon &AIcon);
    /// Asked for what a line's marks mean; plain text.
    std::function<QString(int ALine)> OnToolTip;

    int GetWidth(const TZtGuttorSight &ASight) const override;
    quint64 GetCell(int ALine, const TZtGuttorSight &ASight) const override;
    void Draw(QPainter &APainter, TZtTextPainter &AText, const QRectF &ACell, quint64 AValue,
              const TZtGuttorLook &ALook) const override;
    QString GetToolTip(int ALine) const override
    {
        return OnToolTip ? OnToolTip(ALine) : QString();
    }
    quint64 GetRevision() const { return FRevision; } ///< another one when its pictures are others

private:
    std::function<TZtLineMarkSet(int ALine)> FMarks;
    std::vector<QIcon> FIcons; // by kind
    quint64 FRevision = 0;
};

/// Bars beside lines that were changed.
class ZT_EDITOR_EXPORT TZtChangeColumn final : public TZtGuttorColumn {
public:
    /// `AState` answers a line's.
    explicit TZtChangeColumn(std::function<TZtLineState(int ALine)> AState)
        : FState(std::move(AState))
    {
    }
    int GetWidth(const TZtGuttorSight &ASight) const override;
    quint64 GetCell(int ALine, const TZtGuttorSight &ASight) const override;
    void Draw(QPainter &APainter, TZtTextPainter &AText, const QRectF &ACell, quint64 AValue,
              const TZtGuttorLook &ALook) const override;

private:
    std::function<TZtLineState(int ALine)> FState;
};

/// The columns beside the text, from the left to the right. Where none is visible the gutter is the
/// empty strip that it was in the first version.
class ZT_EDITOR_EXPORT TZtGuttor {
public:
    /// Told when there are other columns.
    std::function<void()> OnChange;

    /// Puts a column, which becomes the gutter's, before the one at `AIndex` (0-based), or behind
    /// the last. Null is refused by doing nothing.
    void Insert(int AIndex, std::unique_ptr<TZtGuttorColumn> AColumn);
    /// Deletes a column; one that is not the gutter's is left alone.
    void Remove(const TZtGuttorColumn *AColumn);
    int GetCount() const { return int(FColumns.size()); } ///< of the columns, visible or not
    /// 0-based, not checked.
    TZtGuttorColumn *GetColumn(int AIndex) const { return FColumns[size_t(AIndex)].get(); }
    /// The index of a column, -1 if it is none of these.
    int IndexOf(const TZtGuttorColumn *AColumn) const;

    /// Whether a column is visible.
    bool HasColumns() const;
    /// Another number when there are other columns.
    quint64 GetRevision() const { return FRevision; }

    /// In pixels, with the edge.
    int GetWidth(const TZtGuttorSight &ASight) const;
    /// The index of the column at a pixel from the gutter's left edge, -1 right of the last.
    int ColumnAt(int AX, const TZtGuttorSight &ASight) const;
    /// Appends to `ACells` what the columns show beside a line, 0 for one that is not visible.
    void GetCells(int ALine, const TZtGuttorSight &ASight, std::vector<quint64> &ACells) const;

    /// Measures the columns for `Draw`.
    void Arrange(const TZtGuttorSight &ASight);
    /// Draws the cells of a row of that height in pixels, whose top left is the painter's origin.
    void Draw(QPainter &APainter, TZtTextPainter &AText, qreal AHeight,
              const std::vector<quint64> &ACells, const TZtGuttorLook &ALook) const;

private:
    int WidthOf(int AIndex, const TZtGuttorSight &ASight) const;

    std::vector<std::unique_ptr<TZtGuttorColumn>> FColumns;
    std::vector<int> FWidths;
    quint64 FRevision = 0;
};
