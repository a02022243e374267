#pragma once

#include "uZtExport.h"
#include "uZtScriptLexer.h"

/// For Qt's reflection, which gives the names of the kinds; hosts write them without it.
namespace ZtVB {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The token kinds of Visual Basic script. `vtRem`, `vtColon` and `vtHexNumber` are never produced,
/// `vtUnitil` only with more reserved words than the lexer's table has; `vtInvalid` is none that a
/// caller gets to see.
enum class TVBToken : quint8 {
    vtLineBreak,
    vtUnknown,
    vtInvalid,
    vtEndOfFile,
    vtIdentifier,
    vtFunction,
    vtSub,
    vtEnd,
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
Q_ENUM_NS(TVBToken)
} // namespace ZtVB

using ZtVB::TVBToken;
/// Kinds of tokens.
using TVBTokens = TZtSet<TVBToken>;
/// A row of the table that draws Visual Basic.
using TZtVBInfo = TZtScriptInfo<TVBToken>;

/// Lexer for Visual Basic script. Every line is read from scratch: nothing crosses a line end.
class ZT_PARSERS_EXPORT TZtCodeVBParser : public TZtScriptLexer<TVBToken> {
    Q_OBJECT

public:
    explicit TZtCodeVBParser(QObject *AOwner = nullptr);

    /// The attributes of all Visual Basic lexers. Row 0 draws what no other row claims.
    static TZtVBInfo DrawInfo[RowCount];

    /// "Visual Basic".
    QString GetLanguage() const override;

    /// The text before `EndStr`. The first character of `EndStr` stays to be read, also at the end
    /// of the input, where it is read once though the text has none. `TokenKind` is left as it is.
    QString ReadRemark(const QString &EndStr, TVBToken &TokenKind) override;

protected:
    QString MethodTemplate(TMethodKind AKind) const override;

private:
    static const TLanguage &Language();
    TVBToken LineRemarkToken(TZtTokenText &AText);
    TVBToken OpenParenToken(TZtTokenText &AText);
};
