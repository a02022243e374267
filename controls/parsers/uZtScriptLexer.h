#pragma once

#include "uZtCodeParser.h"
#include "uZtSet.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>
#include <typeinfo>

// What the Visual Basic and the JavaScript lexer have in common. Hosts include the unit of the
// language that they want.

/// A row of a script language's attribute table.
template <typename TToken> struct TZtScriptInfo {
    /// The element under which colour settings know the row.
    QString Name;
    TColor TextColor; ///< the text's colour
    TColor BckColor;  ///< the background's
    /// The kinds of token that are drawn with the row.
    TZtSet<TToken> Tokens;
    TFontStyles Style; ///< bold, italic, underlined, struck out
};

/// A reserved word, in upper case, and what it makes of an identifier.
template <typename TToken> struct TZtScriptKeyWord {
    std::u16string_view Text; ///< in upper case, ASCII
    TToken Kind;              ///< what an identifier becomes that reads so
};

/// Base of the script lexers: words, numbers, strings and symbols. A language adds its table of
/// first characters, its reserved words and how its remarks are read.
///
/// A reader is called when the token's first character is consumed and answers the rest of the
/// token's text; a descendant may replace any of them.
template <typename TToken> class TZtScriptLexer : public TZtLangParser {
public:
    /// Reads one token and answers its kind. Line feeds are skipped, unless `ClosedRemarks` makes
    /// them line breaks; every other character makes a token or belongs to one. At the end of the
    /// input the text is a #0. Raises `EZtParser` when no kind was found, which no input brings
    /// about. `vtUnitil` is a reserved word that only `AllKeyWords` or `ExtraKeyWords` knows.
    TToken InternalGetNextToken(QString &AToken);

    /// Reads one token with its attributes from the language's `DrawInfo`; false at the end of the
    /// input. `GetPaintInfo` is asked once for every token, and a time before that for one that
    /// a row from 1 up claims, so an `OnPaintInfo` handler must not build on its own changes.
    bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                      TFontStyles &AFontStyle, bool &ALineBreak) override;
    QStringList GetElements() const override { return ZtDrawInfoNames(FDrawInfo); }

    /// The rest of a string, with its closing quote; a doubled quote stays doubled. An unclosed
    /// string ends before the line break.
    virtual QString ReadString();
    /// The rest of a remark that ends with `EndStr` (one or two characters). `TokenKind` is the
    /// kind that the token is about to get.
    virtual QString ReadRemark(const QString &EndStr, TToken &TokenKind) = 0;
    /// The rest of a number. Makes `TokenKind` a `vtFloat` when the number has a point, unless it
    /// is ended by a second one.
    virtual QString ReadNumber(TToken &TokenKind);
    /// The hexadecimal digits that follow.
    virtual QString ReadHexNumber();
    /// The letters, digits and underscores that follow.
    virtual QString ReadIdentifier();

    /// Whether a token counts for the method tools: blanks, line breaks, unknown characters,
    /// remarks and the words ByVal and ByRef do not.
    static constexpr bool IsReal(TToken AKind) { return !Unreal.contains(AKind); }
    /// Reads up to the next token that counts for the method tools and answers its kind.
    TToken GetNextRealToken(QString &AToken);

    /// The text of a new handler, which begins and ends with a line break. `AMethodName` becomes
    /// the object's name, "_" and the event's name, or the event's name alone for an object
    /// without a name or none. After that, raises `EZtParser` when `GetMethodDescription` knows no
    /// such event.
    QString CreateMethod(QObject *AObject, const QString &AEventName,
                         QString &AMethodName) override;
    /// The names of the methods in the whole text that have as many parameters as the event, each
    /// followed by CR LF: functions for a function, subs for a procedure, none for an event that
    /// is not known. Every identifier between the parentheses counts as a parameter. A header is
    /// not seen where a `vtEnd` comes before it, which in JavaScript a "}" is too.
    ///
    /// Like `MethodLineNr`, it restarts the source and leaves it at its end; `RemarkEnd` and
    /// `LineKind` are not reset, so a host that has read other text before clears them first.
    QString GetSameMethods(QObject *AObject, const QString &AEventName) override;
    /// The 1-based line of the name of a method, compared without regard to case, or -1. The
    /// source is left after the name.
    int MethodLineNr(const QString &AMethodName) override;

protected:
    /// A row of the language's table.
    using TInfo = TZtScriptInfo<TToken>;
    /// A reserved word of the language.
    using TKeyWord = TZtScriptKeyWord<TToken>;
    static constexpr size_t RowCount = 7; ///< of every script language's table

    /// Reads what follows a token's first character, which `AText` holds. `vtInvalid` makes the
    /// scanner go on to the next character.
    using TReader = TToken (TZtScriptLexer::*)(TZtTokenText &AText);

    /// What a first character leads to: a reader, or without one a token of a single character.
    struct TCharacter {
        TToken Kind = TToken::vtUnknown; ///< of a character without a reader
        TReader Reader = nullptr;        ///< null for a token of one character
    };
    /// By character code. What is above 127 is a token of unknown kind.
    using TCharacters = std::array<TCharacter, 128>;

    /// A language. The reserved words whose first letter is "A" + i are those from
    /// `FirstKeyWord[i]` up to, not including, `FirstKeyWord[i + 1]`.
    struct TLanguage {
        const std::type_info *LexerType; ///< the class itself, of which descendants are told apart
        TCharacters Characters;          ///< what each first character leads to
        /// Sorted by first letter; the common ones and the language's own.
        std::array<TKeyWord, 46> KeyWords;
        std::array<quint8, 27> FirstKeyWord; ///< of each letter, and behind the last
    };

    /// For the language's lexer. `ALanguage`, `AGrammar` and `ADrawInfo` outlive it. `AOwner` is
    /// the parent, which deletes it.
    TZtScriptLexer(QObject *AOwner, const TLanguage &ALanguage, const TZtGrammar &AGrammar,
                   const TInfo (&ADrawInfo)[RowCount])
        : TZtLangParser(AOwner, AGrammar), FLanguage(ALanguage), FDrawInfo(ADrawInfo)
    {
    }

    /// The first characters that the script languages have in common.
    static constexpr TCharacters CommonCharacters();
    /// The language of a lexer class: its first characters, the common reserved words and those
    /// of its own.
    static constexpr TLanguage MakeLanguage(const std::type_info &ALexerType,
                                            const TCharacters &ACharacters,
                                            std::initializer_list<TKeyWord> AOwnKeyWords);

    /// The text of an empty handler: %1 stands for its name, %2 for its parameters.
    virtual QString MethodTemplate(TMethodKind AKind) const = 0;

    /// Reads on in a remark that was left open by an earlier call. False when none is open. Asked
    /// only when there is a line kind or a remark end.
    virtual bool ContinueRemark(QString &, TToken &) { return false; }

    /// What was gathered, as a reader's answer; and a reader's answer, appended to a token.
    static QString ToText(const TZtTokenText &AText)
    {
        return QString(reinterpret_cast<const QChar *>(AText.constData()), AText.size());
    }
    /// A reader's answer, appended to a token.
    static void AppendText(TZtTokenText &AText, const QString &ARest)
    {
        AText.append(reinterpret_cast<const char16_t *>(ARest.utf16()), ARest.size());
    }

    /// The character of `EndStr` at index `i`, #0 when there is none.
    static char16_t EndChar(const QString &EndStr, qsizetype i)
    {
        return i < EndStr.size() ? EndStr.at(i).unicode() : u'\0';
    }

private:
    /// Whether no descendant can have replaced a reader: then tokens are read without a string
    /// for each reader's answer.
    bool HasOwnReaders() const { return typeid(*this) == *FLanguage.LexerType; }
    /// Most tokens are one character, and so is the token before, whose memory serves again.
    static void SetCharToken(QString &AToken, char16_t C)
    {
        if (AToken.size() == 1)
            *AToken.data() = QChar(C);
        else
            AToken = QChar(C);
    }
    void TakeString(TZtTokenText &AText);
    void TakeNumber(TZtTokenText &AText, TToken &TokenKind);

    template <bool Corrected> Q_ALWAYS_INLINE TToken ReadNextToken(QString &AToken);
    Q_NEVER_INLINE TToken CorrectedToken(QString &AToken);
    Q_NEVER_INLINE TToken CorrectedWordToken(TZtTokenText &AText, TToken AKind);
    /// Kept out of line for the sake of the single characters, which are most of the tokens.
    Q_NEVER_INLINE TToken ReadToken(char16_t C, TReader AReader, QString &AToken);
    TToken StringToken(TZtTokenText &AText);
    TToken HexNumberToken(TZtTokenText &AText);
    TToken NumberToken(TZtTokenText &AText);
    TToken PeriodToken(TZtTokenText &AText);
    TToken LessToken(TZtTokenText &AText);
    TToken GreaterToken(TZtTokenText &AText);
    TToken WordToken(TZtTokenText &AText);
    TToken KeyWordKind(const TZtTokenText &AText) const;
    int CountParams(TToken &AKind);

    static constexpr TZtSet<TToken> Unreal{
        TToken::vtLineBreak, TToken::vtUnknown, TToken::vtInvalid, TToken::vtByVal,
        TToken::vtByRef,     TToken::vtRem,     TToken::vtComment};
    static constexpr TZtCharSet HexChars{{u'0', u'9'}, {u'A', u'F'}, {u'a', u'f'}};
    static constexpr TZtCharSet NumberChars{u'.', {u'0', u'9'}};
    static constexpr TZtCharSet WordChars{{u'0', u'9'}, {u'A', u'Z'}, u'_', {u'a', u'z'}};

    const TLanguage &FLanguage;
    const TInfo (&FDrawInfo)[RowCount];
};

/// The reserved words that the script languages have in common.
template <typename TToken>
inline constexpr TZtScriptKeyWord<TToken> ZtScriptKeyWords[] = {
    {u"BYVAL", TToken::vtByVal},
    {u"BYREF", TToken::vtByRef},
    {u"CASE", TToken::vtCase},
    {u"CLASS", TToken::vtClass},
    {u"CONST", TToken::vtConst},
    {u"DIM", TToken::vtDim},
    {u"DO", TToken::vtDo},
    {u"DEFAULT", TToken::vtDefault},
    {u"END", TToken::vtEnd},
    {u"EACH", TToken::vtEach},
    {u"ELSE", TToken::vtElse},
    {u"ERASE", TToken::vtErase},
    {u"ERROR", TToken::vtError},
    {u"ELSEIF", TToken::vtElseIf},
    {u"EXECUTE", TToken::vtExecute},
    {u"EXPLICIT", TToken::vtExplicit},
    {u"EXECUTEGLOBAL", TToken::vtExecuteGlobal},
    {u"FOR", TToken::vtFor},
    {u"FUNCTION", TToken::vtFunction},
    {u"GET", TToken::vtGet},
    {u"GOTO", TToken::vtGoto},
    {u"IN", TToken::vtIn},
    {u"IF", TToken::vtIf},
    {u"LET", TToken::vtLet},
    {u"LOOP", TToken::vtLoop},
    {u"NEXT", TToken::vtNext},
    {u"ON", TToken::vtOn},
    {u"OPTION", TToken::vtOption},
    {u"PUBLIC", TToken::vtPublic},
    {u"PRIVATE", TToken::vtPrivate},
    {u"PROPERTY", TToken::vtProperty},
    {u"PRESERVE", TToken::vtPreserve},
    // A remark to the end of the line, not a word of its own.
    {u"REM", TToken::vtComment},
    {u"REDIM", TToken::vtReDim},
    {u"RESUME", TToken::vtResume},
    {u"RANDOMIZE", TToken::vtRandomize},
    {u"SELECT", TToken::vtSelect},
    {u"SET", TToken::vtSet},
    {u"SUB", TToken::vtSub},
    {u"TO", TToken::vtTo},
    {u"WHILE", TToken::vtWhile},
    {u"WEND", TToken::vtWend},
    {u"WITH", TToken::vtWith},
};

template <typename TToken>
constexpr typename TZtScriptLexer<TToken>::TCharacters TZtScriptLexer<TToken>::CommonCharacters()
{
    TCharacters Result;
    const auto Run = [&Result](char16_t First, char16_t Last, TReader Reader) {
        for (char16_t C = First; C <= Last; ++C)
            Result[C].Reader = Reader;
    };
    Run(u'0', u'9', &TZtScriptLexer::NumberToken);
    Run(u'A', u'Z', &TZtScriptLexer::WordToken);
    Run(u'a', u'z', &TZtScriptLexer::WordToken);
    Run(u'_', u'_', &TZtScriptLexer::WordToken);
    Run(u'"', u'"', &TZtScriptLexer::StringToken);
    Run(u'$', u'$', &TZtScriptLexer::HexNumberToken);
    Run(u'.', u'.', &TZtScriptLexer::PeriodToken);
    Run(u'<', u'<', &TZtScriptLexer::LessToken);
    Run(u'>', u'>', &TZtScriptLexer::GreaterToken);
    Result[0].Kind = TToken::vtEndOfFile;
    Result[u'\n'].Kind = TToken::vtInvalid;
    Result[u'\r'].Kind = TToken::vtLineBreak;
    Result[u'&'].Kind = TToken::vtConcat;
    Result[u'('].Kind = TToken::vtOpenParen;
    Result[u')'].Kind = TToken::vtCloseParen;
    Result[u'*'].Kind = TToken::vtMultiply;
    Result[u'+'].Kind = TToken::vtPlus;
    Result[u','].Kind = TToken::vtComma;
    Result[u'-'].Kind = TToken::vtMinus;
    Result[u'/'].Kind = TToken::vtDivide;
    Result[u';'].Kind = TToken::vtSemicolon;
    Result[u'='].Kind = TToken::vtEquals;
    Result[u'['].Kind = TToken::vtOpenBracket;
    Result[u'\\'].Kind = TToken::vtDivideInt;
    Result[u']'].Kind = TToken::vtCloseBracket;
    return Result;
}

template <typename TToken>
constexpr typename TZtScriptLexer<TToken>::TLanguage
TZtScriptLexer<TToken>::MakeLanguage(const std::type_info &ALexerType,
                                     const TCharacters &ACharacters,
                                     std::initializer_list<TKeyWord> AOwnKeyWords)
{
    TLanguage Result{&ALexerType, ACharacters, {}, {}};
    const auto Last =
        std::copy(AOwnKeyWords.begin(), AOwnKeyWords.end(),
                  std::copy(std::begin(ZtScriptKeyWords<TToken>),
                            std::end(ZtScriptKeyWords<TToken>), Result.KeyWords.begin()));
    std::sort(Result.KeyWords.begin(), Last,
              [](const TKeyWord &A, const TKeyWord &B) { return A.Text[0] < B.Text[0]; });
    for (auto KeyWord = Result.KeyWords.begin(); KeyWord != Last; ++KeyWord)
        for (size_t i = size_t(KeyWord->Text[0] - u'A') + 1; i < Result.FirstKeyWord.size(); ++i)
            ++Result.FirstKeyWord[i];
    return Result;
}

template <typename TToken>
template <bool Corrected>
inline TToken TZtScriptLexer<TToken>::ReadNextToken(QString &AToken)
{
    TToken Kind = TToken::vtInvalid;
    if ((GetLineKind() != 0 || !GetRemarkEnd().isEmpty()) && !(Corrected && GetClosedRemarks()) &&
        ContinueRemark(AToken, Kind))
        return Kind;
    constexpr TCharacter Other;
    while (Kind == TToken::vtInvalid) {
        const char16_t C = ReadChar();
        if (Corrected)
            if (const int Closed = ReadClosed(C, AToken); Closed >= 0)
                return TToken(Closed);
        const TCharacter &Character =
            C < FLanguage.Characters.size() ? FLanguage.Characters[C] : Other;
        Kind = Character.Kind;
        if (Character.Reader)
            Kind = ReadToken(C, Character.Reader, AToken);
        else
            SetCharToken(AToken, C);
    }
    if (Kind == TToken::vtInvalid)
        throw EZtParser(QStringLiteral("Managed to find an invalid token."));
    return Kind;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::InternalGetNextToken(QString &AToken)
{
    if (IsCorrected()) [[unlikely]]
        return CorrectedToken(AToken);
    return ReadNextToken<false>(AToken);
}

template <typename TToken> TToken TZtScriptLexer<TToken>::CorrectedToken(QString &AToken)
{
    const TToken Kind = ReadNextToken<true>(AToken);
    NoteToken(AToken);
    return Kind;
}

template <typename TToken>
TToken TZtScriptLexer<TToken>::ReadToken(char16_t C, TReader AReader, QString &AToken)
{
    TZtTokenText Text = {C};
    const TToken Kind = (this->*AReader)(Text);
    SetToken(AToken, Text);
    return Kind;
}

template <typename TToken>
bool TZtScriptLexer<TToken>::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                          TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TToken Kind = InternalGetNextToken(AToken);
    const TInfo &Row = TakeStyle(FDrawInfo, Kind, ABackGround, ATextColor, AFontStyle);
    // The hook sees a token that a row claims twice: here and at the end.
    if (&Row != &FDrawInfo[0])
        GetPaintInfo(AToken, ABackGround, ATextColor, AFontStyle);
    ALineBreak = Kind == TToken::vtLineBreak;
    GetPaintInfo(AToken, ABackGround, ATextColor, AFontStyle);
    return Kind != TToken::vtInvalid && Kind != TToken::vtEndOfFile;
}

template <typename TToken> QString TZtScriptLexer<TToken>::ReadString()
{
    TZtTokenText Text;
    TakeString(Text);
    return ToText(Text);
}

template <typename TToken> QString TZtScriptLexer<TToken>::ReadNumber(TToken &TokenKind)
{
    TZtTokenText Text;
    TakeNumber(Text, TokenKind);
    return ToText(Text);
}

template <typename TToken> QString TZtScriptLexer<TToken>::ReadHexNumber()
{
    TZtTokenText Text;
    ReadRun(HexChars, Text);
    return ToText(Text);
}

template <typename TToken> QString TZtScriptLexer<TToken>::ReadIdentifier()
{
    TZtTokenText Text;
    ReadRun(WordChars, Text);
    return ToText(Text);
}

template <typename TToken> void TZtScriptLexer<TToken>::TakeString(TZtTokenText &AText)
{
    for (;;) {
        char16_t C = ReadChar();
        if (C == u'"') {
            AText.append(C);
            C = ReadChar();
            if (C != u'"')
                return PushChar(C);
        } else if (C == u'\0' || C == u'\n' || C == u'\r') {
            return PushChar(C);
        }
        AText.append(C);
    }
}

template <typename TToken>
void TZtScriptLexer<TToken>::TakeNumber(TZtTokenText &AText, TToken &TokenKind)
{
    bool PointSeen = false;
    char16_t C = ReadChar();
    for (; NumberChars.contains(C); C = ReadChar()) {
        if (C == u'.') {
            // What a second point ends keeps its kind, also with a point in it: 1.2.3 begins with
            // 1.2 as a vtNumber.
            if (PointSeen || PeekChar() == u'.')
                return PushChar(C);
            PointSeen = true;
        }
        AText.append(C);
    }
    PushChar(C);
    if (PointSeen)
        TokenKind = TToken::vtFloat;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::StringToken(TZtTokenText &AText)
{
    if (HasOwnReaders())
        TakeString(AText);
    else
        AppendText(AText, ReadString());
    return TToken::vtString;
}

// A "$" number is a plain vtNumber; vtHexNumber is never produced.
template <typename TToken> TToken TZtScriptLexer<TToken>::HexNumberToken(TZtTokenText &AText)
{
    AppendText(AText, ReadHexNumber());
    return TToken::vtNumber;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::NumberToken(TZtTokenText &AText)
{
    TToken Kind = TToken::vtNumber;
    if (HasOwnReaders())
        TakeNumber(AText, Kind);
    else
        AppendText(AText, ReadNumber(Kind));
    return Kind;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::PeriodToken(TZtTokenText &AText)
{
    const char16_t C = ReadChar();
    if (C == u'.') {
        AText.append(C);
        return TToken::vtRange;
    }
    PushChar(C);
    return TToken::vtPeriod;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::LessToken(TZtTokenText &AText)
{
    const char16_t C = ReadChar();
    if (C == u'=' || C == u'>') {
        AText.append(C);
        return C == u'=' ? TToken::vtLessEqual : TToken::vtNotEquals;
    }
    PushChar(C);
    return TToken::vtLess;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::GreaterToken(TZtTokenText &AText)
{
    const char16_t C = ReadChar();
    if (C == u'=') {
        AText.append(C);
        return TToken::vtGreaterEqual;
    }
    PushChar(C);
    return TToken::vtGreater;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::WordToken(TZtTokenText &AText)
{
    if (HasOwnReaders())
        ReadRun(WordChars, AText);
    else
        AppendText(AText, ReadIdentifier());
    TToken Kind = KeyWordKind(AText);
    if (IsCorrected())
        return CorrectedWordToken(AText, Kind);
    if (Kind == TToken::vtComment)
        AppendText(AText, ReadRemark(QStringLiteral("\r"), Kind));
    return Kind;
}

template <typename TToken>
TToken TZtScriptLexer<TToken>::CorrectedWordToken(TZtTokenText &AText, TToken AKind)
{
    if (AKind == TToken::vtIdentifier) {
        const bool More = HasMoreWords() && IsMoreWord({AText.constData(), size_t(AText.size())}) &&
                          IsWholeWord();
        return More ? TToken::vtUnitil : AKind;
    }
    if (GetAllKeyWords() && !IsWholeWord())
        return TToken::vtIdentifier;
    if (AKind != TToken::vtComment)
        return AKind;
    if (!GetClosedRemarks()) {
        AppendText(AText, ReadRemark(QStringLiteral("\r"), AKind));
        return AKind;
    }
    const auto &Spans = Grammar().Spans;
    const auto Remark = std::ranges::find(Spans, u"REM", &TZtSpan::Begin);
    if (Remark == Spans.end() || IsName())
        return TToken::vtIdentifier;
    ReadSpan(size_t(Remark - Spans.begin()), AText);
    return AKind;
}

template <typename TToken>
TToken TZtScriptLexer<TToken>::KeyWordKind(const TZtTokenText &AText) const
{
    // Reserved words are letters only, and only the two cases of a letter differ in this bit alone.
    const auto Upper = [](char16_t C) { return char16_t(C & ~0x20); };
    const char16_t First = Upper(AText.front());
    if (First < u'A' || First > u'Z')
        return TToken::vtIdentifier;
    const int Last = FLanguage.FirstKeyWord[First - u'A' + 1];
    for (int i = FLanguage.FirstKeyWord[First - u'A']; i < Last; ++i) {
        const TKeyWord &KeyWord = FLanguage.KeyWords[i];
        if (qsizetype(KeyWord.Text.size()) == AText.size() &&
            std::equal(KeyWord.Text.begin(), KeyWord.Text.end(), AText.cbegin(),
                       [&](char16_t A, char16_t B) { return A == Upper(B); }))
            return KeyWord.Kind;
    }
    return TToken::vtIdentifier;
}

template <typename TToken> TToken TZtScriptLexer<TToken>::GetNextRealToken(QString &AToken)
{
    TToken Kind;
    do
        Kind = InternalGetNextToken(AToken);
    while (!IsReal(Kind));
    return Kind;
}

template <typename TToken>
QString TZtScriptLexer<TToken>::CreateMethod(QObject *AObject, const QString &AEventName,
                                             QString &AMethodName)
{
    AMethodName = AObject ? AObject->objectName() : QString();
    if (!AMethodName.isEmpty())
        AMethodName += u'_';
    AMethodName += AEventName;
    const auto Event = GetMethodDescription(AObject, AEventName);
    if (!Event)
        throw EZtParser(
            QStringLiteral("There is no event \"%1\" to create a method for.").arg(AEventName));
    QString Params;
    for (int i = 0; i < Event->GetParamCount(); ++i) {
        if (!Params.isEmpty())
            Params += QLatin1String(", ");
        Params += Event->GetParams(i)->GetName();
    }
    return MethodTemplate(Event->GetProcType()).arg(AMethodName, Params);
}

template <typename TToken>
QString TZtScriptLexer<TToken>::GetSameMethods(QObject *AObject, const QString &AEventName)
{
    ResetBuffer();
    const auto Event = GetMethodDescription(AObject, AEventName);
    const auto Fits = [&Event](TToken Kind) {
        return Event &&
               ((Kind == TToken::vtFunction && Event->GetProcType() == TMethodKind::mkFunction) ||
                (Kind == TToken::vtSub && Event->GetProcType() == TMethodKind::mkProcedure));
    };
    QString Result, Token;
    TToken Before = TToken::vtUnknown;
    TToken Kind = GetNextRealToken(Token);
    while (Kind != TToken::vtEndOfFile) {
        if (Fits(Kind) && Before != TToken::vtEnd) {
            Kind = GetNextRealToken(Token);
            const QString Name = Token;
            if (Kind == TToken::vtIdentifier && CountParams(Kind) == Event->GetParamCount())
                Result += Name + QLatin1String("\r\n");
        }
        Before = Kind;
        Kind = GetNextRealToken(Token);
    }
    return Result;
}

// Counts after a method's name; leaves in `AKind` the kind that was read last: the closing
// parenthesis, or without an opening one what stands there. The header of a method in that place
// is passed over.
template <typename TToken> int TZtScriptLexer<TToken>::CountParams(TToken &AKind)
{
    QString Token;
    int Result = 0;
    AKind = GetNextRealToken(Token);
    if (AKind == TToken::vtOpenParen)
        while (AKind != TToken::vtCloseParen && AKind != TToken::vtEndOfFile) {
            AKind = GetNextRealToken(Token);
            if (AKind == TToken::vtIdentifier)
                ++Result;
        }
    return Result;
}

template <typename TToken> int TZtScriptLexer<TToken>::MethodLineNr(const QString &AMethodName)
{
    ResetBuffer();
    QString Token;
    TToken Before = TToken::vtUnknown;
    TToken Kind = GetNextRealToken(Token);
    while (Kind != TToken::vtEndOfFile) {
        if ((Kind == TToken::vtFunction || Kind == TToken::vtSub) && Before != TToken::vtEnd) {
            Kind = GetNextRealToken(Token);
            if (Kind == TToken::vtIdentifier &&
                Token.compare(AMethodName, Qt::CaseInsensitive) == 0)
                return GetLineNr();
        }
        Before = Kind;
        Kind = GetNextRealToken(Token);
    }
    return -1;
}
