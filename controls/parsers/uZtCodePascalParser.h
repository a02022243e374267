#pragma once

#include "uZtCodeParser.h"
#include "uZtExport.h"
#include "uZtSet.h"

/// For Qt's reflection, which gives the names of the kinds; hosts write them without it.
namespace ZtPascal {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The token kinds of Pascal. `ptRepeat`, `ptHexNumber` and `ptSoapComment` are declared for hosts;
/// the lexer never gives them. `ptKeyword` is a reserved word that only `AllKeyWords` or
/// `ExtraKeyWords` knows.
enum class TPascalToken : quint8 {
    ptUnknown,
    ptLineBreak,
    ptTry,
    ptExcept,
    ptFinally,
    ptInherited,
    ptSpace,
    ptAs,
    ptInvalid,
    ptEndOfFile,
    ptFunction,
    ptProcedure,
    ptConstructor,
    ptDestructor,
    ptUnit,
    ptImplementation,
    ptProgram,
    ptUses,
    ptBegin,
    ptEnd,
    ptType,
    ptIf,
    ptThen,
    ptElse,
    ptRepeat,
    ptUntil,
    ptDo,
    ptClass,
    ptPrivate,
    ptProtected,
    ptPublic,
    ptPublished,
    ptProperty,
    ptinterface,
    ptKeyword,
    ptIdentifier,
    ptString,
    ptHexNumber,
    ptNumber,
    ptFloat,
    ptComment,
    ptSoapComment,
    ptVar,
    ptConst,
    ptOut,
    ptComma,
    ptSemicolon,
    ptColon,
    ptPeriod,
    ptRange,
    ptEquals,
    ptNotEquals,
    ptLess,
    ptLessEqual,
    ptGreater,
    ptGreaterEqual,
    ptAssign,
    ptOpenParen,
    ptCloseParen,
    ptOpenBracket,
    ptCloseBracket,
    ptCaret,
    ptHash,
    ptAddress,
    ptPlus,
    ptMinus,
    ptMultiply,
    ptDivide
};
Q_ENUM_NS(TPascalToken)
} // namespace ZtPascal

using ZtPascal::TPascalToken;
/// Kinds of tokens.
using TPascalTokens = TZtSet<TPascalToken>;

/// The words that begin what a documentation comment can belong to.
inline constexpr TPascalTokens ptSoapMethods = {TPascalToken::ptFunction,
                                                TPascalToken::ptProcedure};
/// The comments, documentation or not.
inline constexpr TPascalTokens ptComments = {TPascalToken::ptComment, TPascalToken::ptSoapComment};

/// How the tokens of some kinds are drawn.
struct TZtPascalInfo {
    QString Name;         ///< also the element's name in the IDE's colour settings
    TColor TextColor;     ///< the text's colour
    TColor BckColor;      ///< the background's
    TPascalTokens Tokens; ///< those that are drawn so
    TFontStyles Style;    ///< bold, italic, underlined, struck out
};

/// The Pascal lexer. What crosses a line end is a comment that is still open: `LineKind` is 1 for
/// "(*", 2 for "{" and 0 for none, and is all that a restart at a line needs.
class ZT_PARSERS_EXPORT TZtCodePascalParser : public TZtLangParser {
    Q_OBJECT
    Q_PROPERTY(int DelphiVersion READ GetDelphiVersion WRITE SetDelphiVersion)
    Q_PROPERTY(int SoapCommentLineStart READ GetSoapCommentLineStart WRITE SetSoapCommentLineStart)
    Q_PROPERTY(int SoapCommentPosStart READ GetSoapCommentPosStart WRITE SetSoapCommentPosStart)
    Q_PROPERTY(int SoapCommentLineEnd READ GetSoapCommentLineEnd WRITE SetSoapCommentLineEnd)
    Q_PROPERTY(int SoapCommentPosEnd READ GetSoapCommentPosEnd WRITE SetSoapCommentPosEnd)
    Q_PROPERTY(QString SoapComment READ GetSoapComment WRITE SetSoapComment)

public:
    explicit TZtCodePascalParser(QObject *AOwner = nullptr);

    /// How tokens are drawn: row 0 for what no other row claims. Shared by all Pascal lexers; a
    /// host may change it.
    static TZtPascalInfo DrawInfo[8];

    /// Reads one token and how `DrawInfo` draws it. Answers false at the end of the input.
    /// `ALineBreak` is true for a CR alone; the LF after it is a token of unknown kind.
    /// `OnPaintInfo` has no effect on Pascal text.
    bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                      TFontStyles &AFontStyle, bool &ALineBreak) override;
    QString GetLanguage() const override;
    QStringList GetElements() const override { return ZtDrawInfoNames(DrawInfo); }

    /// Reads one token. Its text is the source's, with three exceptions: a backspace code reads as
    /// four spaces, a doubled quote within a string as one quote, and a "(*" comment that is open
    /// at the end of the input gets a ")". At a line break within a comment the text is left as
    /// it was. With `ClosedRemarks` only the first of these is left, and CR and LF are one token.
    TPascalToken InternalGetNextToken(QString &AToken);

    /// The letters, digits and underscores that come next.
    QString ReadIdentifier();
    /// The digits that come next, with at most one point among them. A point makes `Kind`
    /// `ptFloat`; the first of two points in a row is left unread.
    QString ReadNumber(TPascalToken &Kind);
    /// The rest of a string after its opening quote, with the closing quote if there is one on the
    /// line.
    QString ReadString();
    /// The rest of a comment that `AEnd` closes ("*)", "}" or CR), as far as `EndLines` lets it
    /// go. Sets `LineKind` and `RemarkEnd` for what follows and resets the documentation comment.
    /// `Kind` is left as it is.
    QString ReadRemark(const QString &AEnd, TPascalToken &Kind);

    /// The version of the IDE whose editor colours were asked for.
    int GetDelphiVersion() const { return DelphiVersion; }
    /// Stores `V` and, when that version of the IDE has left its settings, replaces the colours
    /// and styles in `DrawInfo` by them. Raises what `GetPaintInfoFromReg` raises; the rows after
    /// the failing one are imported by then.
    void SetDelphiVersion(int V);

    /// Where the application found a documentation comment (-1 for none), and its text. The lexer
    /// resets these at each comment and never fills them.
    int GetSoapCommentLineStart() const { return SoapCommentLineStart; }
    void SetSoapCommentLineStart(int Value) { SoapCommentLineStart = Value; }
    /// Where it begins in its line.
    int GetSoapCommentPosStart() const { return SoapCommentPosStart; }
    void SetSoapCommentPosStart(int Value) { SoapCommentPosStart = Value; }
    int GetSoapCommentLineEnd() const { return SoapCommentLineEnd; } ///< the line in which it ends
    void SetSoapCommentLineEnd(int Value) { SoapCommentLineEnd = Value; }
    int GetSoapCommentPosEnd() const { return SoapCommentPosEnd; } ///< where it ends there
    void SetSoapCommentPosEnd(int Value) { SoapCommentPosEnd = Value; }
    const QString &GetSoapComment() const { return SoapComment; } ///< what it says
    void SetSoapComment(const QString &Value) { SoapComment = Value; }

private:
    struct TRules;

    template <bool Corrected> Q_ALWAYS_INLINE TPascalToken ReadNextToken(QString &AToken);
    Q_NEVER_INLINE TPascalToken CorrectedToken(QString &AToken);
    TPascalToken ContinueRemark(QString &AToken);
    void TakeBackspace(TZtTokenText &AText, TPascalToken &Kind);
    void TakeSpaces(TZtTokenText &AText, TPascalToken &Kind);
    void TakeHexNumber(TZtTokenText &AText, TPascalToken &Kind);
    void TakeNumber(TZtTokenText &AText, TPascalToken &Kind);
    void TakeString(TZtTokenText &AText, TPascalToken &Kind);
    void TakeIdentifier(TZtTokenText &AText, TPascalToken &Kind);
    void TakeOperator(TZtTokenText &AText, TPascalToken &Kind);
    void TakeParen(TZtTokenText &AText, TPascalToken &Kind);
    void TakeSlash(TZtTokenText &AText, TPascalToken &Kind);
    void TakeBrace(TZtTokenText &AText, TPascalToken &Kind);
    void TakeRemark(const QString &AEnd, TZtTokenText &AText);
    void ResetSoapComment();

    int SoapCommentLineEnd = -1;
    int SoapCommentPosEnd = -1;
    int SoapCommentLineStart = -1;
    int SoapCommentPosStart = -1;
    QString SoapComment;
    int DelphiVersion = 0;
};

/// The lexer under the name by which forms store it.
class ZT_PARSERS_EXPORT TztCodePasParser : public TZtCodePascalParser {
    Q_OBJECT

public:
    using TZtCodePascalParser::TZtCodePascalParser;
};
