#pragma once

#include "uZtException.h"
#include "uZtMethodDescription.h"
#include "uZtNotifier.h"
#include "uZtSet.h"
#include "uZtTypes.h"

#include <QObject>
#include <QString>
#include <QVarLengthArray>

#include <functional>

class QIODevice;

/// What a lexer raises.
class EZtParser : public EZtException {
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

/// The characters of a token while it is read. They are gathered here, and the token's string is
/// set once, because an append to a string for each character costs more than the reading.
using TZtTokenText = QVarLengthArray<char16_t, 128>;

/// Base of every lexer: the character source, push-back, the line counter and the state that
/// crosses line ends. Used as it is, it is the plain-text lexer: a token is a whole line.
///
/// Characters are UTF-16 code units; 0 means the end of the input. One parser serves one editor at
/// a time, on the thread of the user interface.
///
/// A handler may change the lexer, or delete it: it then goes when nobody lexes with it any more.
class TZtLangParser : public QObject, public TZtNotifier {
    Q_OBJECT
    Q_PROPERTY(int LineNr READ GetLineNr)
    Q_PROPERTY(bool InRemark READ GetInRemark WRITE SetInRemark)
    Q_PROPERTY(QString RemarkEnd READ GetRemarkEnd WRITE SetRemarkEnd)
    Q_PROPERTY(bool EndLines READ GetEndLines WRITE SetEndLines)
    Q_PROPERTY(int LineKind READ GetLineKind WRITE SetLineKind)

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

    virtual char16_t InternalReadChar();
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

    virtual QString GetLanguage() const;

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

protected:
    void Abandoned() override { setParent(nullptr); }
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

/// Whether the IDE of major version `AVersion` has left its settings for this user: a non-empty
/// value "App" under "software\borland\delphi\%d.0\".
bool DelphiKnown(int AVersion);

/// `GetPaintInfoFromReg` on the editor colours of the IDE of major version `AVersion`.
void GetPaintInfoFromDelphi(int AVersion, const QString &AElement, TColor &ABackGround,
                            TColor &ATextColor, TFontStyles &AFontStyle);

/// Reads one element's colours and style from the settings key `AKey` (which ends with a
/// backslash). Strike-out is left as it was. Raises when the older colour value is looked up in an
/// existing key and is missing or no integer; what was read before it stays written.
void GetPaintInfoFromReg(const QString &AKey, const QString &AElement, TColor &ABackGround,
                         TColor &ATextColor, TFontStyles &AFontStyle);
