#pragma once

#include "uZtColorScheme.h"
#include "uZtElements.h"
#include "uZtException.h"
#include "uZtExport.h"
#include "uZtGrammar.h"
#include "uZtMethodDescription.h"
#include "uZtNotifier.h"
#include "uZtSet.h"
#include "uZtTypes.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVarLengthArray>

#include <array>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

class QIODevice;

/// What a lexer raises.
class ZT_PARSERS_EXPORT EZtParser : public EZtException {
    using EZtException::EZtException;
};

/// The token kinds of the plain-text lexer.
enum class TlngToken : quint8 { tUnknown, tLineBreak, tLine, tEndOfFile };

/// With `AReset` true announces a restart; with false asks for the next piece of text in `S` and
/// answers false when there is none. The editor's pieces are lines with their CR LF, a very long
/// line in several. `S` arrives empty; it may keep the capacity of the piece before.
/// It may do anything with the lexer but take itself away.
using TZtOnGetNewBuffer = std::function<bool(bool AReset, QString &S)>;

/// Makes the source go on with the piece that holds the next occurrence of `AText`, or be at its
/// end when there is none.
using TZtOnSkipTo = std::function<void(const QString &AText)>;

/// Lets the application recolour a token.
using TZtOnGetTokenPaintInfo = std::function<void(const QString &AToken, TColor &ABackGround,
                                                  TColor &ATextColor, TFontStyles &AFontStyle)>;

/// The row of a lexer's `DrawInfo` table that draws a token of `AKind`: the first from row 1 up
/// whose set holds it, else row 0.
template <typename TRow, size_t N, typename TToken>
const TRow &ZtDrawInfoRow(const TRow (&ADrawInfo)[N], TToken AKind)
{
    for (size_t i = 1; i < N; ++i)
        if (ADrawInfo[i].Tokens.contains(AKind))
            return ADrawInfo[i];
    return ADrawInfo[0];
}

/// `ZtDrawInfoRow` for a lexer, which asks it for every token: each kind is looked up once after a
/// `Reset`, so that a table whose sets a host changes is seen at the next one.
class TZtDrawInfoRows {
public:
    template <typename TRow, size_t N, typename TToken>
    /// The row of a kind, as `ZtDrawInfoRow` tells it. `AResets` is another number after each
    /// `Reset`.
    const TRow &Find(const TRow (&ADrawInfo)[N], TToken AKind, int AResets)
    {
        if (std::exchange(FResets, AResets) != AResets)
            FRows.fill(Unknown);
        quint8 &row = FRows[quint8(AKind)];
        if (row == Unknown)
            row = quint8(&ZtDrawInfoRow(ADrawInfo, AKind) - ADrawInfo);
        FLast = row;
        return ADrawInfo[row];
    }
    /// The row (0-based) that was found last.
    int GetLast() const { return FLast; }

private:
    static constexpr quint8 Unknown = 0xFF;
    std::array<quint8, 256> FRows;
    quint8 FLast = 0;
    int FResets = -1;
};

/// The names of a lexer's elements, one for each row of its `DrawInfo`: the row's, with a number
/// where a row above has the name ("Symbol 2").
template <typename TRow, size_t N> QStringList ZtDrawInfoNames(const TRow (&ADrawInfo)[N])
{
    QStringList Names;
    for (const TRow &Row : ADrawInfo) {
        QString Name = Row.Name;
        for (int i = 2; Names.contains(Name); ++i)
            Name = Row.Name + u' ' + QString::number(i);
        Names += Name;
    }
    return Names;
}

/// The characters of a token while it is read. They are gathered here, and the token's string is
/// set once, because an append to a string for each character costs more than the reading.
using TZtTokenText = QVarLengthArray<char16_t, 128>;

/// What a lexer carries over a line end. Two equal ones at a line's start mean equal tokens from
/// there on, as far as the lines are equal.
struct TZtLexerState {
    QString RemarkEnd;     ///< what closes the comment that is open; empty for none
    int LineKind = 0;      ///< what is open, by a number of the lexer's own; 0 for nothing
    bool InRemark = false; ///< `TZtLangParser::InRemark`
    int Own = 0; ///< what one lexer alone carries, in numbers of its own; 0 at the text's start
    bool operator==(const TZtLexerState &) const = default;
};

/// Base of every lexer: the character source, push-back, the line counter and the state that
/// crosses line ends. Used as it is, it is the plain-text lexer: a token is a whole line.
///
/// Characters are UTF-16 code units; 0 means the end of the input. One parser serves one editor at
/// a time, on the thread of the user interface.
///
/// A handler may change the lexer, or delete it: it then goes when nobody lexes with it any more.
class ZT_PARSERS_EXPORT TZtLangParser : public QObject, public TZtNotifier {
    Q_OBJECT
    Q_PROPERTY(int LineNr READ GetLineNr)
    Q_PROPERTY(bool InRemark READ GetInRemark WRITE SetInRemark)
    Q_PROPERTY(QString RemarkEnd READ GetRemarkEnd WRITE SetRemarkEnd)
    Q_PROPERTY(bool EndLines READ GetEndLines WRITE SetEndLines)
    Q_PROPERTY(int LineKind READ GetLineKind WRITE SetLineKind)
    Q_PROPERTY(bool AllKeyWords READ GetAllKeyWords WRITE SetAllKeyWords)
    Q_PROPERTY(QStringList ExtraKeyWords READ GetExtraKeyWords WRITE SetExtraKeyWords)
    Q_PROPERTY(bool ClosedRemarks READ GetClosedRemarks WRITE SetClosedRemarks)

public:
    explicit TZtLangParser(QObject *AOwner = nullptr);
    ~TZtLangParser() override;
    ZT_DELETE_WHEN_IDLE(TZtLangParser)

    /// The pull callback. It goes before the stream when both are there.
    TZtOnGetNewBuffer OnGetNewBuffer;
    /// Asked by a lexer that is deep inside a token of many lines, whose text it then lacks. A
    /// source that can search saves it from reading a text of megabytes for the end of a token.
    TZtOnSkipTo OnSkipTo;
    /// Asked by `GetPaintInfo`.
    TZtOnGetTokenPaintInfo OnPaintInfo;

    /// Reads raw UTF-16 code units from `AStream` and loads the first block at once. The stream
    /// stays the caller's: `AOwnsStream` is accepted and ignored, which hosts rely on.
    void SetInputStream(QIODevice *AStream, bool AOwnsStream);

    /// Restarts the source (the callback, else the stream) and the line counter. The state that
    /// crosses line ends (`InRemark`, `RemarkEnd`, `EndLines`, `LineKind`) is left as it is.
    virtual void Reset();
    /// `Reset`, with an empty buffer whatever `Reset` left in it.
    void ResetBuffer();

    /// Fills the buffer from the source. After the last piece it holds a lone #0.
    virtual void LoadPushBuffer();

    /// The next character, or #0 at the end of the input.
    char16_t ReadChar() { return InternalReadChar(); }
    /// Makes `C` the next character to be read. Unbounded.
    void PushChar(char16_t C) { InternalPushChar(C); }
    /// The next character, which stays to be read.
    char16_t PeekChar();
    /// Pushes `S` back, so that the next reads return it in order.
    void PushStr(const QString &S);
    /// The character read last. After a push-back to the start of a buffer it is the last one of
    /// the buffer before; #0 when nothing was read yet.
    char16_t ReadCurrChar() const;

    /// `ReadChar`, for a lexer that changes what is read.
    virtual char16_t InternalReadChar();
    /// `PushChar`, for a lexer that changes what is read.
    virtual void InternalPushChar(char16_t C);

    /// Reads one token of the plain-text lexer: a line, a line break or the end of the input.
    TlngToken InternalGetNextToken(QString &AToken);

    /// Reads one token and how it is drawn. The plain-text lexer always answers true, also at the
    /// end of the input, where `ALineBreak` is true; the languages' lexers answer false there.
    virtual bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                              TFontStyles &AFontStyle, bool &ALineBreak);

    /// Hands the token's attributes to `OnPaintInfo`, which may change them.
    virtual void GetPaintInfo(const QString &AToken, TColor &ABackGround, TColor &ATextColor,
                              TFontStyles &AFontStyle);

    /// The language's name, which is never translated. Schemes know the language by it.
    virtual QString GetLanguage() const;

    /// The names of what the lexer tells apart: one for each row of its table, in order, no two
    /// alike ("Symbol", "Symbol 2"). The plain-text lexer has one, "WhiteSpace".
    virtual QStringList GetElements() const;
    /// The element (0-based) of the token that `GetNextToken` answered last; 0 for a lexer that
    /// does not look its tokens up in a table.
    int GetElement() const { return Rows.GetLast(); }
    /// What an element (0-based) is, by its name; `ekCode` when there is no such one.
    TZtElementKind GetElementKind(int AElement) const;

    /// The scheme that draws the tokens instead of the rows of `DrawInfo`, which stay as they are.
    /// What it says is handed to `OnPaintInfo` as the rows' attributes are. Null by default; a
    /// scheme without styles of elements is as good as none. The styles are looked up now: whoever
    /// has coloured lines by the lexer has to ask anew.
    void SetScheme(std::shared_ptr<const TZtColorScheme> Value);
    const std::shared_ptr<const TZtColorScheme> &GetScheme() const { return FScheme; }

    /// The text of a new handler for an event of `AObject`, whose name is returned in
    /// `AMethodName`. Languages without handlers answer an empty string and leave the name.
    virtual QString CreateMethod(QObject *AObject, const QString &AEventName, QString &AMethodName);
    /// The names of the methods in the text that fit an event, each followed by CR LF.
    virtual QString GetSameMethods(QObject *AObject, const QString &AEventName);
    /// The 1-based line of a method's name, or -1.
    virtual int MethodLineNr(const QString &AMethodName);

    /// The 1-based number of the line being read: one more for every LF read.
    int GetLineNr() const { return LineNr; }
    /// A stored flag for the lexers' own use.
    bool GetInRemark() const { return InRemark; }
    void SetInRemark(bool Value) { InRemark = Value; }
    /// The terminator of a comment that is open at the end of what was read; empty for none.
    const QString &GetRemarkEnd() const { return RemarkEnd; }
    void SetRemarkEnd(const QString &Value) { RemarkEnd = Value; }
    /// Whether a comment or string over several lines stops at each line break.
    bool GetEndLines() const { return EndLines; }
    void SetEndLines(bool Value) { EndLines = Value; }
    /// The lexer's own state at the end of the line just read, kept by the editor for each line.
    int GetLineKind() const { return LineKind; }
    void SetLineKind(int Value) { LineKind = Value; }

    /// Whether the reserved words of the language that the lexer's own table lacks are drawn as
    /// such too, and a word directly behind a period is none, whatever it is. The SQL lexer then
    /// reads words whole. Without effect where the language has no words. False by default.
    bool GetAllKeyWords() const { return FAllKeyWords; }
    void SetAllKeyWords(bool Value);
    /// The host's own reserved words, compared as the language compares its own. One that the
    /// lexer does not read as one word is never found. Without effect where the language has no
    /// words. Empty by default.
    const QStringList &GetExtraKeyWords() const { return FExtraKeyWords; }
    void SetExtraKeyWords(const QStringList &Value);
    /// Whether comments and strings begin and end where the language says. Then `LineKind` alone
    /// says which of them is open, whatever `EndLines` and `RemarkEnd` are; each token ends with
    /// its line at the latest, and its text is the source's where a comment or string is concerned;
    /// a CR, a LF or both together are a line break. Readers that a descendant has replaced are not
    /// asked for comments and strings. A change forgets what the lexer carries. False by default.
    bool GetClosedRemarks() const { return FClosedRemarks; }
    void SetClosedRemarks(bool Value);

    /// What crosses a line end; with `ClosedRemarks` all that a restart at a line's start needs.
    TZtLexerState GetState() const { return {RemarkEnd, LineKind, InRemark, GetOwnState()}; }
    /// Takes a state back. Source and buffer stay as they are: a host that restarts at a line calls
    /// `ResetBuffer` first.
    void SetState(const TZtLexerState &Value);
    /// How many UTF-16 units of the piece at hand were not read yet. None when the source is asked
    /// for a line: what `GetState` answers then belongs to that line's start.
    qsizetype GetUnread() const { return BufferLength - BufferPos; }

protected:
    /// How often `Reset` ran.
    int GetResets() const { return FResets; }
    TZtDrawInfoRows Rows; ///< of the lexer's table

    /// How a token of `AKind` is drawn: by the scheme, or without one by its row, which is
    /// answered.
    template <typename TRow, size_t N, typename TToken>
    const TRow &TakeStyle(const TRow (&ADrawInfo)[N], TToken AKind, TColor &ABackGround,
                          TColor &ATextColor, TFontStyles &AFontStyle)
    {
        const TRow &Row = Rows.Find(ADrawInfo, AKind, FResets);
        ABackGround = Row.BckColor;
        ATextColor = Row.TextColor;
        AFontStyle = Row.Style;
        if (FStyles) [[unlikely]]
            TakeSchemeStyle(ABackGround, ATextColor, AFontStyle);
        return Row;
    }
    /// The scheme's attributes of the last token's element. Without a scheme they stay.
    void TakeSchemeStyle(TColor &ABackGround, TColor &ATextColor, TFontStyles &AFontStyle) const;

    /// `AGrammar` is kept by reference.
    TZtLangParser(QObject *AOwner, const TZtGrammar &AGrammar);

    void Abandoned() override { setParent(nullptr); }
    /// The part of the state that the lexer keeps in members of its own.
    virtual int GetOwnState() const { return 0; }
    virtual void SetOwnState(int) {}

    /// The same as `PeekChar`, which goes a longer way.
    char16_t Ahead()
    {
        return BufferPos < BufferLength ? Buffer.at(BufferPos).unicode() : PeekChar();
    }
    /// Whether any of the properties that are off by default is on. A lexer then offers each
    /// token's first character to `ReadClosed` and calls `NoteToken` after the token.
    bool IsCorrected() const { return FCorrected; }
    /// With `ClosedRemarks` reads a line break, or a comment or string as far as it goes on the
    /// line (with `ASpans` false the break only), and answers its kind; -1 when `C`, which was
    /// just read, begins none.
    int ReadClosed(char16_t C, QString &AToken, bool ASpans = true)
    {
        const bool Begins = (C < FSpanStarts.size() && FSpanStarts[C]) || LineKind != 0;
        return Begins && FClosedRemarks ? ReadBreakOrSpan(C, AToken, ASpans) : -1;
    }
    /// Reads the rest of the span at `AIndex` in the language's table, as far as it goes on the
    /// line, and keeps in `LineKind` whether it is open.
    void ReadSpan(size_t AIndex, TZtTokenText &AText);
    /// Reads `AText` and appends it to `AToken` if it comes next.
    bool TakeNext(std::u16string_view AText, TZtTokenText &AToken);
    /// Remembers what stands before the next token.
    void NoteToken(const QString &AToken)
    {
        FBefore = AToken.isEmpty() ? u'\0' : AToken.back().unicode();
        FPeriods = FBefore == u'.' ? FPeriods + AToken.size() : 0;
    }
    /// Whether a word that begins here is a name: directly behind a period, but not behind more
    /// than one ("...new"), or in the middle of a word.
    bool IsName() const
    {
        return FBefore == u'.' ? FPeriods == 1
                               : FGrammar.NamePrefixes.contains(FBefore) || IsLetter(FBefore);
    }
    /// Whether there are reserved words besides those of the lexer's table.
    bool HasMoreWords() const { return FMoreWords; }
    /// Whether a word is one of them.
    bool IsMoreWord(std::u16string_view AWord) const
    {
        const size_t Number = NumberOf(AWord);
        return ((FWordSieve[Number / 64] >> (Number % 64)) & 1) != 0 && IsListed(AWord, Number);
    }
    /// Whether the word that was just read is no name and no part of a longer one.
    bool IsWholeWord() { return !IsName() && !IsLetter(Ahead()); }
    /// What the language has besides the lexer's tables.
    const TZtGrammar &Grammar() const { return FGrammar; }

    /// Appends the characters of `ASet` that come next to `AText` and pushes the first other one
    /// back.
    void ReadRun(const TZtCharSet &ASet, TZtTokenText &AText);
    /// To be called in a token over lines that ends with `AEnd`, after each of its characters: when
    /// the token is long and its piece is used up, the source is asked to go on with the one that
    /// holds the end.
    void SkipTo(const QString &AEnd, qsizetype ATokenLength)
    {
        if (ATokenLength >= LongToken && BufferPos >= BufferLength && OnSkipTo)
            AskToSkip(AEnd);
    }
    /// Makes `AText` the token, in the memory that `AToken` has.
    static void SetToken(QString &AToken, const TZtTokenText &AText);

private:
    // More than can be in sight.
    static constexpr qsizetype LongToken = 1 << 16;

    void AskToSkip(const QString &AEnd);
    void LoadFromCallback();
    void LoadFromStream();
    void PushInFront(char16_t C);
    int ReadBreakOrSpan(char16_t C, QString &AToken, bool ASpans);
    void ReadBreak(char16_t C, QString &AToken);
    bool IsLetter(char16_t C) const
    {
        return C < 0x80 ? FGrammar.Letters.contains(C) : QChar::isLetterOrNumber(C);
    }
    struct TMoreWord {
        size_t Number;
        std::u16string_view Text;
    };
    bool IsListed(std::u16string_view AWord, size_t ANumber) const;
    void AddMoreWord(std::u16string_view AWord);
    void CorrectionsChanged();
    /// A number below 4096 for a word and for all that differ from it in the case of letters.
    static size_t NumberOf(std::u16string_view AWord)
    {
        return (AWord.front() & 31) | ((AWord.back() & 31) << 5) | ((AWord.size() & 3) << 10);
    }

    QString ResetScratch;
    QIODevice *InputStream = nullptr;
    QString Buffer;
    int BufferLength = 0;
    int BufferPos = 0;
    char16_t FCharBeforeBuffer = 0;
    bool OwnsStream = false;
    int LineNr = 1;
    bool InRemark = false;
    QString RemarkEnd;
    bool EndLines = false;
    int LineKind = 0;
    int FResets = 0;

    std::shared_ptr<const TZtColorScheme> FScheme;
    std::unique_ptr<const std::vector<TZtTextStyle>> FStyles; // of the elements; none, no scheme
    mutable std::vector<TZtElementKind> FKinds;               // the same, when they are asked for

    const TZtGrammar &FGrammar;
    const std::array<bool, 128> FSpanStarts; // a look-up for each token
    bool FAllKeyWords = false;
    bool FMoreWords = false;
    bool FClosedRemarks = false;
    bool FCorrected = false;
    char16_t FBefore = 0;
    qsizetype FPeriods = 0;
    QStringList FExtraKeyWords;
    // Words are found by their numbers. Most are none of those, which one bit shows.
    QList<TMoreWord> FWords;
    std::array<quint64, 64> FWordSieve{};
};

// Inline, so that the compiler can try them before it calls through the table of virtual functions:
// they run for every character.
inline char16_t TZtLangParser::InternalReadChar()
{
    if (BufferLength <= BufferPos) {
        LoadPushBuffer();
        if (BufferLength <= BufferPos)
            return u'\0';
    }
    const char16_t C = Buffer.at(BufferPos++).unicode();
    if (C == u'\n')
        ++LineNr;
    return C;
}

inline void TZtLangParser::InternalPushChar(char16_t C)
{
    if (C == u'\n')
        --LineNr;
    if (BufferPos > 0) {
        --BufferPos;
        if (Buffer.at(BufferPos).unicode() != C)
            Buffer[BufferPos] = C;
    } else {
        PushInFront(C);
    }
}

/// Creates a lexer of one class.
using TZtLangParserClass = TZtLangParser *(*)(QObject *AOwner);

/// Whether the IDE of major version `AVersion` has left its settings for this user: a non-empty
/// value "App" under "software\borland\delphi\%d.0\".
ZT_PARSERS_EXPORT bool DelphiKnown(int AVersion);

/// `GetPaintInfoFromReg` on the editor colours of the IDE of major version `AVersion`.
ZT_PARSERS_EXPORT void GetPaintInfoFromDelphi(int AVersion, const QString &AElement,
                                              TColor &ABackGround, TColor &ATextColor,
                                              TFontStyles &AFontStyle);

/// Reads one element's colours and style from the settings key `AKey` (which ends with a
/// backslash). Strike-out is left as it was. Raises when the older colour value is looked up in an
/// existing key and is missing or no integer; what was read before it stays written.
ZT_PARSERS_EXPORT void GetPaintInfoFromReg(const QString &AKey, const QString &AElement,
                                           TColor &ABackGround, TColor &ATextColor,
                                           TFontStyles &AFontStyle);
