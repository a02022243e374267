#include "uZtLexerWalk.h"

#include "uZtBufferSearch.h"
#include "uZtStringList.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int LongestPiece = 16'384;
constexpr int MostIdle = 4096;

} // namespace

TZtLexerWalk::TZtLexerWalk(TZtLangParser &AParser, const TStringList &AText)
    : FParser(AParser), FText(AText), FHold(AParser), FOldGetNewBuffer(AParser.OnGetNewBuffer),
      FOldSkipTo(AParser.OnSkipTo), FOldState(AParser.GetState()),
      FOldEndLines(AParser.GetEndLines()), FRevision(AText.GetRevision())
{
    FParser.OnGetNewBuffer = [this](bool reset, QString &s) { return reset || HandOver(s); };
    FParser.OnSkipTo = [this](const QString &text) { SkipTo(text); };
}

TZtLexerWalk::~TZtLexerWalk()
{
    ZtQuietly([this] { Restart(FOldState); }); // nothing of the text is left in the lexer
    FParser.SetEndLines(FOldEndLines);
    FParser.OnGetNewBuffer = FOldGetNewBuffer;
    FParser.OnSkipTo = FOldSkipTo;
}

void TZtLexerWalk::Start(int ALine, const TZtLexerState &AState)
{
    FLine = ALine;
    FColumn = 0;
    Restart(AState);
}

void TZtLexerWalk::Restart(const TZtLexerState &AState)
{
    FParser.ResetBuffer();
    FParser.SetEndLines(true);
    FParser.SetState(AState);
}

bool TZtLexerWalk::IsTextChanged() const { return FText.GetRevision() != FRevision; }

bool TZtLexerWalk::Next()
{
    if (FDone)
        return false;
    FUnread = FParser.GetUnread();
    FPieces = 0;
    if (!FParser.GetNextToken(Token, Back, Fore, Style, LineBreak)) {
        FDone = FAtEnd || FStopped;
        if (FDone)
            return false;
        Restart(FParser.GetState());
        FColumn = 0;
        Token.resize(0);
        LineBreak = true;
    }
    const qint64 read = FHanded - FParser.GetUnread();
    FIdle = read > FFarthest ? 0 : FIdle + 1;
    FFarthest = std::max(read, FFarthest);
    FDone = FIdle > MostIdle;
    return true;
}

bool TZtLexerWalk::HandOver(QString &S)
{
    if (FStopped || IsTextChanged())
        return End();
    if (FColumn == 0) {
        if (FLine >= FText.GetCount()) {
            FAtEnd = true;
            return End();
        }
        // A lexer may leave the LF of a break to the next token, which passes over it.
        if (!LineStarts(FLine, FPieces == 0 && FUnread <= 1))
            return End();
        ++FLine;
    }
    ++FPieces;
    const int length = LineLimit(FText.GetLength(FLine - 1));
    const int from = std::min(FColumn, length);
    const int count = std::min(length - from, LongestPiece);
    S.resize(0);
    S.reserve(count + 2);
    FText.AppendTo(FLine - 1, from, count, S);
    FColumn = from + count;
    if (FColumn == length) {
        S.append(QLatin1StringView("\r\n"));
        FColumn = 0;
    }
    FHanded += S.size();
    HandedOver(S);
    return true;
}

// A lexer may ask again and again.
bool TZtLexerWalk::End()
{
    if (std::exchange(FStopped, true))
        return false;
    ++FHanded; // the lexer makes a character of it
    HandedOver(QStringView(u"\0", 1));
    return false;
}

void TZtLexerWalk::SkipTo(const QString &AText)
{
    if (!MaySkip() || FStopped)
        return;
    const TZtBufferSearch search(AText, TZtSearchFlag::sfDown | TZtSearchFlag::sfMatchCase);
    if (FColumn > 0) {
        const qsizetype at = search.Find(FText.View(FLine - 1), FColumn);
        FColumn = int(std::max<qsizetype>(at, 0));
        if (at >= 0)
            return;
    }
    while (FLine < FText.GetCount() && search.Find(FText.View(FLine), 0) < 0)
        ++FLine;
}
