#include "MethodIndex.h"

#include "uZtBufferSearch.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"
#include "uZtGuarded.h"
#include "uZtStringList.h"

#include <QDeadlineTimer>
#include <QScopeGuard>

namespace {

constexpr int PieceLength = 16384;
// Milliseconds. A key may wait for a slice, and its picture for another one.
constexpr int SliceTime = 1;
constexpr int Pause = 700;             // milliseconds without a change before the text is read anew
constexpr int TokensBetweenLooks = 16; // at the clock, unless they are long
constexpr qsizetype LongToken = 1024;

} // namespace

// --- what a lexer reads --------------------------------------------------------------------------

bool TLineFeed::operator()(bool AReset, QString &S)
{
    if (AReset) {
        FLine = FColumn = 0;
        return true;
    }
    if (FLine >= FLines->GetCount())
        return false;
    const int rest = qMax(FLines->GetLength(FLine) - FColumn, 0);
    const int count = qMin(rest, PieceLength);
    FLines->AppendTo(FLine, FColumn, count, S);
    FColumn += count;
    if (count == rest) {
        S += QLatin1StringView("\r\n");
        ++FLine;
        FColumn = 0;
    }
    return true;
}

double TLineFeed::Progress() const
{
    const int count = FLines->GetCount();
    if (FLine >= count)
        return 1;
    return (FLine + double(FColumn) / (FLines->GetLength(FLine) + 1)) / count;
}

// --- index ---------------------------------------------------------------------------------------

TMethodIndex::TMethodIndex(const TStringList *ALines, std::unique_ptr<TZtLangParser> ALexer,
                           QObject *AOwner)
    : QObject(AOwner), FLexer(std::move(ALexer)), FFeed(ALines)
{
    FLexer->OnGetNewBuffer = std::ref(FFeed);
    FTimer.setSingleShot(true);
    connect(&FTimer, &QTimer::timeout, this, TZtGuarded([this] { Work(); }));
    Start();
    FTimer.start(0);
}

TMethodIndex::~TMethodIndex() = default;

qsizetype TMethodIndex::NameStart(int AIndex) const
{
    return AIndex > 0 ? FMethods.at(AIndex - 1).NameEnd + 1 : 0;
}

QString TMethodIndex::Name(int AIndex) const
{
    const qsizetype start = NameStart(AIndex);
    return FNames.sliced(start, FMethods.at(AIndex).NameEnd - start);
}

int TMethodIndex::Find(const TZtBufferSearch &ASearch, int AFrom) const
{
    const qsizetype at = ASearch.Find(FNames, NameStart(AFrom));
    if (at < 0)
        return -1;
    while (FMethods.at(AFrom).NameEnd < at)
        ++AFrom;
    return AFrom;
}

void TMethodIndex::Start()
{
    FLexer->SetRemarkEnd(QString());
    FLexer->SetLineKind(0);
    FLexer->ResetBuffer();
    FState = TState::Reading;
    FReadToken = [] { return false; };
    if (auto *vb = qobject_cast<TZtCodeVBParser *>(FLexer.get()))
        StartReading(*vb, TVBToken::vtEnd);
    // A "}" reads as the end of something too, but what follows it may be a method.
    else if (auto *js = qobject_cast<TZtCodeJSParser *>(FLexer.get()))
        StartReading(*js, TJSToken::vtEndOfFile);
}

// A method is an identifier behind the word for one. That word starts none behind the token `AEnd`.
template <typename TToken>
void TMethodIndex::StartReading(TZtScriptLexer<TToken> &ALexer, TToken AEnd)
{
    FReadToken = [this, &ALexer, AEnd, before = TToken::vtUnknown]() mutable {
        const TToken kind = ALexer.InternalGetNextToken(FToken);
        if (kind == TToken::vtEndOfFile)
            return false;
        if (!ALexer.IsReal(kind))
            return true;
        if (kind == TToken::vtIdentifier &&
            (before == TToken::vtFunction || before == TToken::vtSub)) {
            FNames += FToken;
            FMethods.append({ALexer.GetLineNr(), int(FNames.size())});
            FNames += QLatin1Char('\n');
        }
        const bool word = kind == TToken::vtFunction || kind == TToken::vtSub;
        before = word && before == AEnd ? TToken::vtUnknown : kind;
        return true;
    };
}

bool TMethodIndex::ReadOn(int AMilliseconds, int AEnough)
{
    FTimer.stop();
    auto raised = qScopeGuard([this] { Void(); }); // until somebody asks for the methods again
    if (FState == TState::Waiting)
        Start();
    const QDeadlineTimer end(AMilliseconds, Qt::PreciseTimer);
    for (int i = 1; FState == TState::Reading && Count() <= AEnough; ++i) {
        if (!FReadToken())
            FState = TState::Complete;
        else if ((i % TokensBetweenLooks == 0 || FToken.size() > LongToken) && end.hasExpired())
            break;
    }
    raised.dismiss();
    if (!IsComplete())
        FTimer.start(0);
    Q_EMIT Advanced();
    return IsComplete();
}

// A keystroke pays for no more than the first of these lines, or once for all of them.
void TMethodIndex::TextChanged()
{
    FSinceChange.start();
    if (FState == TState::Waiting)
        return;
    Void();
    FTimer.start(Pause);
}

void TMethodIndex::Void()
{
    FState = TState::Waiting;
    FMethods.clear();
    FNames.resize(0);
    Q_EMIT Restarted();
}

void TMethodIndex::Work()
{
    const qint64 left = FState == TState::Waiting ? Pause - FSinceChange.elapsed() : 0;
    if (left > 0)
        FTimer.start(int(left));
    else
        ReadOn(SliceTime);
}
