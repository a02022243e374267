#pragma once

#include "uZtKeys.h"
#include "uZtUndoList.h"

#include <QStringList>

#include <deque>
#include <limits>
#include <utility>

/// A second, deliberately plain description of how the editor behaves: no widget, no speed, one
/// list of strings. `test_random` runs it beside the control.
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
    int HPage = 0, VPage = 0, CharWidth = 0, LineHeight = 0, Guttor = 0, WheelLines = 3;
    int TabSize = 2;
    bool ReadOnly = false, Shift = false;

    // --- caret and selection

    void SetSelection(bool ACollapse)
    {
        SelStart = Caret;
        if (!FDragSeen && (FDrag || ACollapse || !Shift))
            SelEnd = SelStart;
        FDragSeen = FDrag;
    }

    int Count() const { return int(Lines.size()); }
    QString Line(int AIndex) const { return Lines.value(AIndex); }
    int Length(int AIndex) const { return int(Line(AIndex).size()); }
    void ScrollLines(int AValue) { VPos = qBound(0, AValue, Count() + 100); }
    void ScrollColumns(int AValue) { HPos = qBound(0, AValue, 500); }

    void Moved()
    {
        ++CursorMoves;
        SetSelection(false);
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
            ScrollColumns(Caret.x());
        else if (Caret.x() > HPos + HPage)
            ScrollColumns(Caret.x() - HPage);
        Moved();
    }

    void SetLinePos(int Value)
    {
        Caret.setY(qMax(0, qMin(Value, Count() - 1)));
        if (Caret.y() < VPos)
            ScrollLines(Caret.y());
        else if (Caret.y() > VPos + VPage - 1)
            ScrollLines(Caret.y() - VPage);
        Moved();
    }

    // --- the text

    void LinesEdited()
    {
        Modified = true;
        ScrollLines(VPos);
    }

    void Store(int AIndex, const QString &S)
    {
        Lines[AIndex] = S;
        LinesEdited();
    }

    void Insert(int AIndex, const QString &S)
    {
        Lines.insert(AIndex, S);
        LinesEdited();
    }

    void Remove(int AIndex)
    {
        Lines.removeAt(AIndex);
        LinesEdited();
    }

    void Ensure(int AIndex)
    {
        while (Count() <= AIndex)
            Insert(Count(), QString());
    }

    void Record(TZtChangeType AType, QPoint AStart, QPoint AEnd, QPoint ACaret, const QString &S)
    {
        if (Items.size() >= 100)
            Items.pop_front();
        Items.emplace_back(AType, AStart, AEnd, ACaret, S);
    }

    bool Reversed() const
    {
        return SelEnd.y() < SelStart.y() ||
               (SelEnd.y() == SelStart.y() && SelEnd.x() < SelStart.x());
    }

    bool Normalise()
    {
        const bool Swap = Reversed();
        if (Swap)
            std::swap(SelStart, SelEnd);
        return Swap;
    }

    bool Nothing() const
    {
        return SelStart.x() == -1 || SelEnd.x() == -1 || SelEnd.x() == ToLineEnd ||
               SelStart == SelEnd || SelStart.y() < 0 || SelEnd.y() < 0;
    }

    void ClampEnd()
    {
        if (SelEnd.y() < Count())
            return;
        Insert(Count(), QString());
        SelEnd = {ToLineEnd, Count() - 1};
    }

    QString Removed() const
    {
        if (SelStart.y() == SelEnd.y())
            return Line(SelStart.y()).left(SelEnd.x()).mid(SelStart.x());
        QString S = Line(SelStart.y()).mid(SelStart.x());
        for (int y = SelStart.y() + 1; y < SelEnd.y(); ++y)
            S += QStringLiteral("\r\n") + Line(y);
        return S + QStringLiteral("\r\n") + Line(SelEnd.y()).left(SelEnd.x());
    }

    bool PairAt(int AColumn) const
    {
        const QString L = Line(Caret.y());
        return AColumn >= 0 && AColumn + 1 < L.size() && L[AColumn].isHighSurrogate() &&
               L[AColumn + 1].isLowSurrogate();
    }

    // --- editing

    void InsertText(TZtChangeType AType, const QString &S)
    {
        if (ReadOnly)
            return;
        const QPoint P0 = SelStart = SelEnd = Caret;
        ++Changes;
        Ensure(Caret.y());
        if (Length(Caret.y()) < Caret.x())
            Store(Caret.y(), Line(Caret.y()).leftJustified(Caret.x()));
        int Start = 0;
        for (int i = 0; i < S.size(); ++i) {
            if (!IsBreak(S[i]))
                continue;
            const int x = SelStart.x(), y = SelStart.y();
            Insert(y + 1, Line(y).mid(x));
            Store(y, Line(y).left(x) + S.mid(Start, i - Start));
            SelStart = SelEnd = {0, y + 1};
            SetLinePos(y + 1);
            SetCharPos(0);
            i += i + 1 < S.size() && IsBreak(S[i + 1]);
            Start = i + 1;
        }
        if (Start < S.size()) {
            const QString Rest = S.mid(Start);
            Store(SelStart.y(), Line(SelStart.y()).insert(SelStart.x(), Rest));
            SetCharPos(Caret.x() + int(Rest.size()));
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
        QString L = Line(Caret.y()).leftJustified(Caret.x());
        if (S == QStringLiteral("\r")) {
            Enter(P0, L);
        } else {
            L.insert(Caret.x(), S);
            SetCharPos(Caret.x() + int(S.size()));
            Store(Caret.y(), TrimRight(L));
        }
        Record(TZtChangeType::ctInsert, P0, Caret, P0, QString());
    }

    void Enter(QPoint P0, const QString &L)
    {
        Store(P0.y(), TrimRight(L.left(P0.x())));
        Insert(P0.y() + 1, TrimRight(L.mid(P0.x())));
        SetLinePos(P0.y() + 1);
        SetCharPos(0);
        for (int y = Caret.y() - 1; y >= 0; --y) {
            int n = 0;
            while (n < Length(y) && Line(y)[n] == u' ')
                ++n;
            if (n == Length(y))
                continue;
            Store(Caret.y(), QString(n, u' ') + Line(Caret.y()));
            SetCharPos(n);
            return;
        }
    }

    QString DeleteSelected(TZtChangeType AType)
    {
        if (ReadOnly)
            return {};
        const QPoint P0 = Caret;
        ++Changes;
        Normalise();
        if (Nothing())
            return {};
        ClampEnd();
        if (SelStart.y() >= Count())
            return {};
        if (SelStart.x() == ToLineEnd)
            SelStart.setX(Length(SelStart.y()));
        const QPoint From = SelStart;
        const QString Rest = Line(SelEnd.y()).mid(SelEnd.x());
        const QString S = Removed();
        if (AType != TZtChangeType::ctNone)
            Record(AType, SelStart, SelEnd, P0, S);
        const QString Head = Line(From.y()).left(From.x());
        for (int y = From.y(); y < SelEnd.y(); ++y)
            Remove(From.y());
        if (AType == TZtChangeType::ctCut)
            Clipboard = S;
        Store(From.y(), Head + Rest);
        SelEnd = SelStart;
        SetCharPos(From.x());
        SetLinePos(From.y());
        return S;
    }

    // Of the line, as Backspace sees it: 1-based place of the first character that is no space.
    int Indentation(int ALine) const
    {
        const QString L = Line(ALine);
        if (L.isEmpty() || L[0] != u' ')
            return 0;
        int i = 1;
        while (i < L.size() && L[i - 1] == u' ')
            ++i;
        return i;
    }

    void Backspace()
    {
        Ensure(Caret.y());
        QString L = Line(Caret.y());
        const int x = Caret.x(), y = Caret.y();
        if (x >= 1 && y >= 1) {
            for (int k = y; k >= 1 && Blank(L.left(x)); --k) {
                const int Column = Indentation(k);
                if (Column > 0 && Column < x)
                    return SetCharPos(Column - 1);
            }
            if (L.size() < x)
                return SetCharPos(int(L.size()));
        }
        if (x > 0) {
            const int n = PairAt(x - 2) ? 2 : 1;
            Record(TZtChangeType::ctDelete, {x - n, y}, {x, y}, {x, y}, L.mid(x - n, n));
            const bool WasEmpty = L.isEmpty();
            L.remove(x - n, n);
            if (!L.isEmpty())
                Store(y, TrimRight(L));
            if (!L.isEmpty() || WasEmpty)
                return SetCharPos(x - n);
            Remove(y);
            SetLinePos(y - 1);
            Ensure(Caret.y());
            SetCharPos(Length(Caret.y()));
        } else if (y > 0) {
            const QString Above = Line(y - 1);
            const int M = int(Above.size());
            Record(TZtChangeType::ctDelete, {M, y - 1}, {0, y}, {0, y}, QStringLiteral("\r\n"));
            SetCharPos(M);
            Store(y - 1, TrimRight(Above + L));
            Remove(y);
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

    void AddCode(const QString &S) { InsertCode(Count(), 0, S); }

    void InsertCode(int ALine, int AChar, const QString &S)
    {
        SetLinePos(ALine);
        SetCharPos(AChar);
        InsertText(TZtChangeType::ctPaste, S);
    }

    void SetText(const QString &S)
    {
        QString Unix = S;
        Unix.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
        if (Unix.endsWith(u'\n'))
            Unix.chop(1);
        Lines = S.isEmpty() ? QStringList() : Unix.split(u'\n');
        LinesEdited();
        SelStart = SelEnd = {-1, -1};
        SetCharPos(0);
        SetLinePos(0);
    }

    // --- selection and messages

    QString GetSelected()
    {
        const bool Swap = Normalise();
        if (Nothing())
            return {};
        ClampEnd();
        const QString S = SelStart.y() < Count() ? Removed() : QString();
        if (Swap)
            std::swap(SelStart, SelEnd);
        return S;
    }

    qint64 SelLength()
    {
        const bool Swap = Normalise();
        qint64 n = 0;
        if (!Nothing()) {
            ClampEnd();
            n = SelStart.y() < Count() ? Length(SelStart.y()) - SelStart.x() : 0;
            for (int y = SelStart.y() + 1; y < SelEnd.y(); ++y)
                n += Length(y);
            if (SelEnd.y() > SelStart.y())
                n += SelEnd.x();
        }
        if (Swap)
            std::swap(SelStart, SelEnd);
        return n;
    }

    void SelectWord()
    {
        const QString L = Line(Caret.y());
        if (Caret.y() >= Count() || Caret.x() >= L.size())
            return;
        const auto Word = [&](int Index) {
            return Index >= 1 && (IsAsciiWord(L[Index - 1]) || L[Index - 1] == u'_');
        };
        int E = Caret.x(), S = Caret.x();
        while (E < L.size() && Word(E))
            ++E;
        while (S > 0 && Word(S))
            --S;
        if (E < L.size())
            --E;
        SetCharPos(E);
        SelEnd.setX(S);
        SelStart.setX(E);
    }

    void Cut() { Clipboard = DeleteSelected(TZtChangeType::ctCut); }
    void Copy() { Clipboard = GetSelected(); }

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
            const QString L = Line(Start.y());
            const QString S = L.left(Start.x()) + Item.GetValue() + L.mid(Start.x());
            Remove(Start.y());
            int y = Start.y();
            for (const QString &Piece : S.split(QStringLiteral("\r\n")))
                Insert(y++, Piece);
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
        const bool Navigation = AKey >= TZtKey::Prior && AKey <= TZtKey::Down &&
                                AKey != TZtKey::End && AKey != TZtKey::Home;
        const int x = Caret.x(), y = Caret.y();
        if (Navigation)
            SetSelection(false);
        if (AKey == 'A' && ACtrl)
            SelectAll();
        else if (AKey == TZtKey::Left && ACtrl)
            WordLeft();
        else if (AKey == TZtKey::Right && ACtrl)
            WordRight();
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
        if (AKey == TZtKey::Home) {
            SetCharPos(0);
            if (ACtrl)
                SetLinePos(0);
        }
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

    void WordRight()
    {
        if (Caret.y() >= Count())
            return;
        TReader R{Lines, Caret.x(), Caret.y(), Caret.x(), Line(Caret.y())};
        ushort C = 0;
        do
            C = R.Forward();
        while (TReader::Word(C));
        do
            C = R.Forward();
        while (!TReader::Word(C) && C != 13);
        if (C == 13 && R.Line == Count() - 1)
            R.P = int(Lines.last().size()) + 1;
        if (R.Line > Caret.y() && Caret.x() < Length(Caret.y())) {
            R.Line = Caret.y();
            R.P = Length(Caret.y()) + 1;
        }
        SetCharPos(R.P - 1);
        SetLinePos(R.Line);
    }

    void WordLeft()
    {
        if (Caret.y() >= Count())
            return;
        TReader R{Lines, Caret.x(), Caret.y(), Caret.x(), Line(Caret.y())};
        ushort C = 0;
        do
            C = R.Backward();
        while (!TReader::Word(C) && C != 0 && R.Dry == 0);
        if (R.Dry > 0) {
            SetCharPos(0);
            return SetLinePos(0);
        }
        int P = 0, y = 0;
        do {
            P = R.P;
            y = R.Line;
        } while (TReader::Word(R.Backward()));
        if (y < Caret.y() && P < Length(y))
            P = Length(y) + 1;
        SetCharPos(P - 1);
        SetLinePos(y);
    }

    // --- mouse

    void MouseTo(int X, int Y)
    {
        SetCharPos(HPos + (X - Guttor) / CharWidth);
        SetLinePos(VPos + Y / LineHeight);
    }

    void MouseDown(int X, int Y)
    {
        FButton = true;
        FDrag = FDragSeen = false;
        MouseTo(X, Y);
    }

    void MouseMove(int X, int Y)
    {
        if (!FButton)
            return;
        FDrag = true;
        MouseTo(X, Y);
        SetSelection(false);
    }

    void MouseUp() { FButton = FDrag = FDragSeen = false; }

    void Wheel(int ADelta) { ScrollLines(VPos + (ADelta > 0 ? -WheelLines : WheelLines)); }

private:
    static constexpr int ToLineEnd = std::numeric_limits<int>::max();

    static QString TrimRight(QString S)
    {
        while (!S.isEmpty() && S.back().unicode() <= 32)
            S.chop(1);
        return S;
    }

    static bool Blank(const QString &S) { return TrimRight(S).isEmpty(); }
    static bool IsBreak(QChar C) { return C == u'\r' || C == u'\n'; }
    static bool IsAsciiWord(QChar C)
    {
        return (C >= u'0' && C <= u'9') || (C >= u'A' && C <= u'Z') || (C >= u'a' && C <= u'z');
    }

    // The reader of the word jumps: 0 is the stop mark, 13 the mark of a line's end.
    struct TReader {
        const QStringList &Lines;
        int Column;
        int Line;
        int P;
        QString Text;
        int Dry = 0; // reads above the first line

        ushort Forward()
        {
            if (++P <= Text.size())
                return Text[P - 1].unicode();
            Text = Line < Lines.size() - 1 ? Lines[++Line] : QString();
            P = 0;
            return 13;
        }

        ushort Backward()
        {
            if (--P >= 1)
                return P <= Text.size() ? Text[P - 1].unicode() : ushort(0);
            if (Column > 0) {
                P = 0;
                return 0;
            }
            Dry += Line == 0;
            Text = Line > 0 ? Lines[--Line] : QString();
            P = int(Text.size()) + 1;
            return 13;
        }

        static bool Word(ushort C) { return C > 255 || IsAsciiWord(QChar(C)); }
    };

    bool FButton = false, FDrag = false, FDragSeen = false;
};
