#pragma once

#include "uZtExport.h"
#include "uZtScriptLexer.h"

/// For Qt's reflection, which gives the names of the kinds; hosts write them without it.
namespace ZtJS {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The token kinds of JavaScript. Braces are `vtBegin` and `vtEnd`. `vtExit`, `vtThen`, `vtUntil`,
/// `vtRem`, `vtColon` and `vtHexNumber` are never produced, `vtUnitil` only with more reserved
/// words than the lexer's table has; `vtInvalid` is none that a caller gets to see.
enum class TJSToken : quint8 {
    vtLineBreak,
    vtUnknown,
    vtInvalid,
    vtEndOfFile,
    vtIdentifier,
    vtFunction,
    vtSub,
    vtEnd,
    vtBegin,
    vtClass,
    vtPublic,
    vtPrivate,
    vtConst,
    vtDim,
    vtDo,
    vtWhile,
    vtUnitil,
    vtLoop,
    vtExit,
    vtErase,
    vtExecute,
    vtExecuteGlobal,
    vtEach,
    vtIn,
    vtFor,
    vtTo,
    vtNext,
    vtDefault,
    vtByVal,
    vtByRef,
    vtIf,
    vtThen,
    vtElse,
    vtElseIf,
    vtOn,
    vtError,
    vtResume,
    vtGoto,
    vtOption,
    vtExplicit,
    vtProperty,
    vtGet,
    vtSet,
    vtLet,
    vtRandomize,
    vtReDim,
    vtPreserve,
    vtRem,
    vtSelect,
    vtCase,
    vtWend,
    vtWith,
    vtUntil,
    vtConcat,
    vtString,
    vtHexNumber,
    vtNumber,
    vtFloat,
    vtComment,
    vtComma,
    vtSemicolon,
    vtColon,
    vtPeriod,
    vtRange,
    vtEquals,
    vtNotEquals,
    vtLess,
    vtLessEqual,
    vtGreater,
    vtGreaterEqual,
    vtOpenParen,
    vtCloseParen,
    vtOpenBracket,
    vtCloseBracket,
    vtPlus,
    vtMinus,
    vtMultiply,
    vtDivide,
    vtDivideInt
};
Q_ENUM_NS(TJSToken)
} // namespace ZtJS

using ZtJS::TJSToken;
/// Kinds of tokens.
using TJSTokens = TZtSet<TJSToken>;
/// A row of the table that draws JavaScript.
using TZtJSInfo = TZtScriptInfo<TJSToken>;

/// Lexer for JavaScript. A "/*" comment that is open at a line end goes on in the next line through
/// `RemarkEnd` and `LineKind`, when `EndLines` is on. With `ClosedRemarks` a `LineKind` of 1 is
/// such a comment, 2 a template literal, 3 and 4 a string with an escaped line break.
class ZT_PARSERS_EXPORT TZtCodeJSParser : public TZtScriptLexer<TJSToken> {
    Q_OBJECT

public:
    explicit TZtCodeJSParser(QObject *AOwner = nullptr);

    /// The attributes of all JavaScript lexers. Row 0 draws what no other row claims.
    static TZtJSInfo DrawInfo[RowCount];

    /// "JavaScript".
    QString GetLanguage() const override;

    /// The text up to and including `EndStr`. With `EndLines` on, the text before a line break,
    /// which stays to be read; then `RemarkEnd` and `LineKind` (1 for a "/*" comment) say that the
    /// remark is open, unless the line break itself is its end. `TokenKind` is left as it is.
    QString ReadRemark(const QString &EndStr, TJSToken &TokenKind) override;

protected:
    QString MethodTemplate(TMethodKind AKind) const override;
    bool ContinueRemark(QString &AToken, TJSToken &AKind) override;

private:
    static const TLanguage &Language();
    TJSToken RemarkToken(QString &AToken);
    TJSToken SlashToken(TZtTokenText &AText);
};
