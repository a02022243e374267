#pragma once

#include "uZtCodeParser.h"
#include "uZtExport.h"
#include "uZtSet.h"

#include <array>
#include <memory>
#include <vector>

/// For Qt's reflection, which gives the names of the kinds; hosts write them without it.
namespace ZtSql {
Q_NAMESPACE_EXPORT(ZT_PARSERS_EXPORT)

/// The token kinds of SQL. `vtInvalid` is never produced, `vtFieldName` only with `ClosedRemarks`,
/// for a name in quotes.
enum class TZtSqlToken : quint8 {
    vtLineBreak,
    vtUnknown,
    vtInvalid,
    vtEndOfFile,
    vtKeyWord,
    vtFieldName,
    vtQuotedValue, ///< a string
    vtNumber,
    vtParameter,
    vtComment
};
Q_ENUM_NS(TZtSqlToken)
} // namespace ZtSql

using ZtSql::TZtSqlToken;
/// Kinds of tokens.
using TZtSqlTokens = TZtSet<TZtSqlToken>;

/// A row of the SQL attribute table.
struct TZtSqlTokenInfo {
    /// The element under which colour settings know the row.
    QString Name;
    TColor TextColor; ///< the text's colour
    TColor BckColor;  ///< the background's
    /// The kinds of token that are drawn with the row.
    TZtSqlTokens Tokens;
    TFontStyles Style; ///< bold, italic, underlined, struck out
};

/// The keywords of SQL. A lexer takes them over when it is created. They may hold the characters
/// "A" to "_" (in either case of the letters); the empty one stands for nothing.
extern ZT_PARSERS_EXPORT QString ZtSqlKeyWords[176];

/// Lexer for SQL: keywords after a blank, a comma or a parenthesis, quoted values, numbers, "@"
/// parameters and comments. All else is text, a character a token. No input is rejected. With
/// `ClosedRemarks` a `LineKind` of 1 is an open comment, 2 an open value, 3 an open name in quotes.
class ZT_PARSERS_EXPORT TZtCodeSqlParser : public TZtLangParser {
    Q_OBJECT

public:
    /// Builds the keyword tree. Raises `EZtException` for a keyword with a character outside "A" to
    /// "_".
    explicit TZtCodeSqlParser(QObject *AOwner = nullptr);

    /// The attributes of all SQL lexers. Row 0 draws what no other row claims.
    static TZtSqlTokenInfo DrawInfo[8];

    /// Restarts the source, outside a comment and as after a blank.
    void Reset() override;

    /// "Sql".
    QString GetLanguage() const override;
    QStringList GetElements() const override { return ZtDrawInfoNames(DrawInfo); }

    /// Reads one token and answers its kind. The text of a control character is empty, that of a
    /// line break or a lone LF is what was read; at the end of the input it is empty.
    virtual TZtSqlToken InternalGetNextToken(QString &AToken);

    /// Reads one token with its attributes from `DrawInfo`; false at the end of the input.
    /// `OnPaintInfo` is not asked.
    bool GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                      TFontStyles &AFontStyle, bool &ALineBreak) override;

    /// The next `Count` characters, which stay to be read, with a #0 for each one past the end of
    /// the input.
    QString PeekString(int Count);

    /// Whether a "/*" comment is open at the end of what was read.
    bool GetInComment() const { return InComment || (GetClosedRemarks() && GetLineKind() == 1); }
    /// The last character of the token before; a space at the start and after a line break.
    char16_t GetLastChar() const { return LastChar; }

protected:
    /// Whether a "/*" comment is open, which `LineKind` says with `ClosedRemarks`.
    int GetOwnState() const override;
    void SetOwnState(int Value) override;

private:
    /// A node of the keyword tree: entries 0 to 30 lead on for the characters "A" to "_"; entry 31
    /// is set where a keyword ends.
    struct TNode {
        static constexpr int CharCount = 31;
        static constexpr int EndMark = 31;
        std::array<TNode *, 32> Next{};
    };

    TNode *NewNode();
    void AddKeyWord(const QString &AKeyWord);

    template <bool Corrected> Q_ALWAYS_INLINE TZtSqlToken ReadNextToken(QString &AToken);
    Q_NEVER_INLINE TZtSqlToken CorrectedToken(QString &AToken);
    TZtSqlToken ReadToken(char16_t C, QString &AToken);
    TZtSqlToken LineBreakToken(QString &AToken);
    TZtSqlToken QuotedToken(QString &AToken);
    TZtSqlToken DashToken(QString &AToken);
    TZtSqlToken NumberToken(QString &AToken);
    TZtSqlToken ParameterToken(QString &AToken);
    TZtSqlToken WordToken(QString &AToken);
    TZtSqlToken WholeWordToken(char16_t C, QString &AToken);
    TZtSqlToken BlockComment(char16_t C, QString &AToken);

    bool InComment = false;
    TNode *KeyWordTree = nullptr;
    std::vector<std::unique_ptr<TNode>> KeyWordNodes;
    char16_t LastChar = u' ';
};
