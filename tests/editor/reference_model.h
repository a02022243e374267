#pragma once

#include "uZtKeys.h"
#include "uZtUndoList.h"

#include <QStringList>

#include <deque>
#include <limits>

/// A second, deliberately plain description of how the editor edits: no widget, no speed, one list
/// of strings. `test_random` runs it beside the control. Jumps by words, the mouse and the wheel
/// are left to rows.
class TReferenceEditor {
public:
    // what a comparison looks at
    QStringList Lines;
    QPoint Caret, SelStart, SelEnd;
    std::deque<TZtUndoItem> Items;
    bool Modified = false;
    int HPos = 0, VPos = 0;
    int Changes = 0, CursorMoves = 0, Errors = 0;
    QString Clipboard;
    // what it is told
    int HPage = 0, VPage = 0, TabSize = 2;
    bool ReadOnly = false, Shift = false;

    int Count() const { return int(Lines.size()); }
    int Length(int AIndex) const { return int(Lines.value(AIndex).size()); }

    // --- caret, selection, view

    void SetSelection(bool ACollapse)
    {
        SelStart = Caret;
        if (ACollapse || !Shift)
            SelEnd = SelStart;
    }

    void SetCharPos(int Value)
    {
        Caret.setX(Value);
        if (Value < 0) {
            SetCharPos(0);
            if (Caret.y() > 0)
                SetLinePos(Caret.y() - 1);
        }
        if (Caret.x() < HPos)
            HPos = Caret.x();
        else if (Caret.x() > HPos + HPage)
            HPos = qMin(Caret.x() - HPage, 500);
        Moved();
    }

    void SetLinePos(int Value)
    {
        Caret.setY(qMax(0, qMin(Value, Count() - 1)));
        if (Caret.y() < VPos)
            VPos = Caret.y();
        else if (Caret.y() > VPos + VPage - 1)
            VPos = Caret.y() - VPage;
        Moved();
    }

    void Moved()
    {
        ++CursorMoves;
        SetSelection(false);
    }

    // --- the text

    QStringList &Edited()
    {
        Modified = true;
        return Lines;
    }
    void Ensure(int AIndex)
    {
        while (Count() <= AIndex)
            Edited() += QString();
    }
    void Record(TZtChangeType AType, QPoint AStart, QPoint AEnd, QPoint ACaret, const QString &S)
    {
        if (Items.size() >= 100)
            Items.pop_front();
        Items.emplace_back(AType, AStart, AEnd, ACaret, S);
    }

    // Puts the selection in order; answers whether it holds anything, after a line was added for
    // one that ends below the text.
    bool TakeSelection()
    {
        if (std::pair(SelEnd.y(), SelEnd.x()) < std::pair(SelStart.y(), SelStart.x()))
            std::swap(SelStart, SelEnd);
        if (SelStart.x() == -1 || SelEnd.x() == -1 || SelEnd.x() == ToLineEnd ||
            SelStart == SelEnd || SelStart.y() < 0 || SelEnd.y() < 0)
            return false;
        if (SelEnd.y() >= Count()) {
            Edited() += QString();
            SelEnd = {ToLineEnd, Count() - 1};
        }
        return SelStart.y() < Count();
    }

    QString Selected() const
    {
        const QString last = Lines[SelEnd.y()].left(SelEnd.x());
        if (SelStart.y() == SelEnd.y())
            return last.mid(SelStart.x());
        QString S = Lines[SelStart.y()].mid(SelStart.x()) + "\r\n";
        for (int y = SelStart.y() + 1; y < SelEnd.y(); ++y)
            S += Lines[y] + "\r\n";
        return S + last;
    }

    bool PairAt(int AColumn) const
    {
        const QString L = Lines.value(Caret.y());
        return AColumn >= 0 && AColumn + 1 < L.size() && L[AColumn].isHighSurrogate() &&
               L[AColumn + 1].isLowSurrogate();
    }

    void InsertText(TZtChangeType AType, const QString &S)
    {
        if (ReadOnly)
            return;
        const QPoint P0 = SelStart = SelEnd = Caret;
        ++Changes;
        Ensure(Caret.y());
        if (Length(Caret.y()) < Caret.x())
            Edited()[Caret.y()] = Lines[Caret.y()].leftJustified(Caret.x());
        int Start = 0;
        for (int i = 0; i < S.size(); ++i) {
            if (!IsBreak(S[i]))
                continue;
            const int x = SelStart.x(), y = SelStart.y();
            Edited().insert(y + 1, Lines[y].mid(x));
            Edited()[y] = Lines[y].left(x) + S.mid(Start, i - Start);
            SelStart = SelEnd = {0, y + 1};
            SetLinePos(y + 1);
            SetCharPos(0);
            i += i + 1 < S.size() && IsBreak(S[i + 1]);
            Start = i + 1;
        }
        if (Start < S.size()) {
            Edited()[SelStart.y()].insert(SelStart.x(), S.mid(Start));
            SetCharPos(Caret.x() + int(S.size()) - Start);
        }
        Record(AType, P0, Caret, P0, QString());
    }

    void AddTxt(const QString &S)
    {
        if (ReadOnly)
            return;
        const QPoint P0 = Caret;
        ++Changes;
        Ensure(Caret.y());
        QString L = Lines[Caret.y()].leftJustified(Caret.x());
        if (S == "\r") {
            Enter(P0, L);
        } else {
            L.insert(Caret.x(), S);
            SetCharPos(Caret.x() + int(S.size()));
            Edited()[Caret.y()] = TrimRight(L);
        }
        Record(TZtChangeType::ctInsert, P0, Caret, P0, QString());
    }

    void Enter(QPoint P0, const QString &L)
    {
        Edited()[P0.y()] = TrimRight(L.left(P0.x()));
        Edited().insert(P0.y() + 1, TrimRight(L.mid(P0.x())));
        SetLinePos(P0.y() + 1);
        SetCharPos(0);
        int y = Caret.y() - 1;
        while (y >= 0 && Blanks(y) == Length(y))
            --y;
        if (y < 0)
            return;
        Edited()[Caret.y()].prepend(QString(Blanks(y), u' '));
        SetCharPos(Blanks(y));
    }

    QString DeleteSelected(TZtChangeType AType)
    {
        if (ReadOnly)
            return {};
        const QPoint P0 = Caret;
        ++Changes;
        if (!TakeSelection())
            return {};
        if (SelStart.x() == ToLineEnd)
            SelStart.setX(Length(SelStart.y()));
        const QPoint From = SelStart;
        const QString S = Selected();
        const QString Joined = Lines[From.y()].left(From.x()) + Lines[SelEnd.y()].mid(SelEnd.x());
        if (AType != TZtChangeType::ctNone)
            Record(AType, SelStart, SelEnd, P0, S);
        for (int y = From.y(); y < SelEnd.y(); ++y)
            Edited().removeAt(From.y());
        if (AType == TZtChangeType::ctCut)
            Clipboard = S;
        Edited()[From.y()] = Joined;
        SelEnd = SelStart;
        SetCharPos(From.x());
        SetLinePos(From.y());
        return S;
    }

    int Blanks(int ALine) const
    {
        const QString L = Lines.value(ALine);
        int n = 0;
        while (n < L.size() && L[n] == u' ')
            ++n;
        return n;
    }

    // Of the line, as Backspace sees it: 1-based place of the first character that is no space.
    int Indentation(int ALine) const
    {
        return Blanks(ALine) > 0 ? qMin(Blanks(ALine) + 1, Length(ALine)) : 0;
    }

    void Backspace()
    {
        Ensure(Caret.y());
        QString L = Lines[Caret.y()];
        const int x = Caret.x(), y = Caret.y();
        if (x >= 1 && y >= 1) {
            for (int k = y; k >= 1 && TrimRight(L.left(x)).isEmpty(); --k)
                if (Indentation(k) > 0 && Indentation(k) < x)
                    return SetCharPos(Indentation(k) - 1);
            if (L.size() < x)
                return SetCharPos(int(L.size()));
        }
        if (x > 0) {
            const int n = PairAt(x - 2) ? 2 : 1;
            Record(TZtChangeType::ctDelete, {x - n, y}, {x, y}, {x, y}, L.mid(x - n, n));
            const bool WasEmpty = L.isEmpty();
            L.remove(x - n, n);
            if (!L.isEmpty())
                Edited()[y] = TrimRight(L);
            if (!L.isEmpty() || WasEmpty)
                return SetCharPos(x - n);
            Edited().removeAt(y);
            SetLinePos(y - 1);
            Ensure(Caret.y());
            SetCharPos(Length(Caret.y()));
        } else if (y > 0) {
            const int M = Length(y - 1);
            Record(TZtChangeType::ctDelete, {M, y - 1}, {0, y}, {0, y}, "\r\n");
            SetCharPos(M);
            Edited()[y - 1] = TrimRight(Lines[y - 1] + L);
            Edited().removeAt(y);
            SetLinePos(y - 1);
        }
    }

    void Char(const QString &C)
    {
        const ushort Code = C[0].unicode();
        if (Code != 8 && Code != 9 && Code != 13 && Code < 32)
            return;
        if (Code != 9)
            DeleteSelected(TZtChangeType::ctDelete);
        if (Code == 8)
            Backspace();
        else
            AddTxt(Code == 9 ? QString(qMax(TabSize, 0), u' ') : C);
        SetSelection(true);
    }

    void SetText(QString S)
    {
        S.replace("\r\n", "\n").replace(u'\r', u'\n');
        Edited() = S.isEmpty() ? QStringList() : S.split(u'\n');
        if (S.endsWith(u'\n'))
            Lines.removeLast();
        SelStart = SelEnd = {-1, -1};
        SetCharPos(0);
        SetLinePos(0);
    }

    // --- messages

    void Cut() { Clipboard = DeleteSelected(TZtChangeType::ctCut); }

    void Copy()
    {
        const QPoint Start = SelStart;
        const bool Any = TakeSelection();
        Clipboard = Any ? Selected() : QString();
        if (Any && SelStart != Start)
            std::swap(SelStart, SelEnd);
    }

    void Paste()
    {
        DeleteSelected(TZtChangeType::ctDelete);
        InsertText(TZtChangeType::ctPaste, Clipboard);
        SetSelection(true);
    }

    void Undo()
    {
        if (Items.empty())
            return;
        const TZtUndoItem Item = Items.back();
        const bool Cut = Item.GetChangeType() == TZtChangeType::ctCut;
        const QPoint Start = Item.GetStartPos();
        Items.pop_back();
        if (Cut || Item.GetChangeType() == TZtChangeType::ctDelete) {
            if (Start.y() >= Count())
                return void(++Errors);
            const QString L = Lines[Start.y()];
            const QString S = L.left(Start.x()) + Item.GetValue() + L.mid(Start.x());
            Edited().removeAt(Start.y());
            int y = Start.y();
            for (const QString &Piece : S.split("\r\n"))
                Edited().insert(y++, Piece);
        } else {
            SelStart = Start;
            SelEnd = Item.GetEndPos();
            DeleteSelected(TZtChangeType::ctNone);
        }
        SetLinePos(Item.GetCaretPos().y());
        SetCharPos(Item.GetCaretPos().x());
        if (Cut) {
            SelStart = Start;
            SelEnd = Item.GetEndPos();
        }
    }

    // --- keys

    void Key(quint16 AKey, bool ACtrl)
    {
        const bool Navigation = AKey == TZtKey::Prior || AKey == TZtKey::Next ||
                                (AKey >= TZtKey::Left && AKey <= TZtKey::Down);
        const int x = Caret.x(), y = Caret.y();
        if (Navigation)
            SetSelection(false);
        if (AKey == 'A' && ACtrl)
            SelectAll();
        else if (AKey == TZtKey::Left && x > 0)
            SetCharPos(x - (PairAt(x - 2) ? 2 : 1));
        else if (AKey == TZtKey::Right && x < 500)
            SetCharPos(x + (PairAt(x) ? 2 : 1));
        else if (AKey == TZtKey::Up && y > 0)
            SetLinePos(y - 1);
        else if (AKey == TZtKey::Down && y < Count())
            SetLinePos(y + 1);
        else if (AKey == TZtKey::Prior)
            SetLinePos(y - VPage);
        else if (AKey == TZtKey::Next)
            SetLinePos(y + VPage);
        else if (AKey == TZtKey::Delete)
            DeleteKey();
        else if (AKey == TZtKey::Home)
            SetCharPos(0);
        if (AKey == TZtKey::Home && ACtrl)
            SetLinePos(0);
        if (AKey == TZtKey::End) {
            if (Shift)
                SetSelection(false);
            if (ACtrl)
                SetLinePos(Count() - 1);
            if (Caret.y() < Count())
                SetCharPos(Length(Caret.y()));
        }
        if (Navigation)
            SetSelection(false);
    }

    void SelectAll()
    {
        SetLinePos(Count() - 1);
        SetCharPos(Length(Caret.y()));
        SelEnd = {0, 0};
        SelStart = Caret;
    }

    void DeleteKey()
    {
        if (SelEnd.x() == -1 || SelEnd == SelStart) {
            SelStart = Caret;
            SelEnd = {Caret.x() + (PairAt(Caret.x()) ? 2 : 1), Caret.y()};
            if (Caret.y() > Count() - 1)
                return;
            if (Length(Caret.y()) < SelEnd.x())
                SelEnd = {0, Caret.y() + 1};
        }
        DeleteSelected(Shift ? TZtChangeType::ctCut : TZtChangeType::ctDelete);
    }

private:
    static constexpr int ToLineEnd = std::numeric_limits<int>::max();

    static QString TrimRight(QString S)
    {
        while (!S.isEmpty() && S.back().unicode() <= 32)
            S.chop(1);
        return S;
    }
    static bool IsBreak(QChar C) { return C == u'\r' || C == u'\n'; }
};
