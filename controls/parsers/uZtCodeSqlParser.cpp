#include "uZtCodeSqlParser.h"

#include "uZtClassRegistry.h"

#include <algorithm>

using enum TZtSqlToken;
using namespace Qt::Literals::StringLiterals;

[[maybe_unused]] static const bool Registered = ZtRegisterClass<TZtCodeSqlParser>();

TZtSqlTokenInfo TZtCodeSqlParser::DrawInfo[8] = {
    {u"WhiteSpace"_s, clWindowText, clWindow, {}, {}},
    {u"Text"_s, clWindowText, clWindow, {vtUnknown}, {}},
    {u"KeyWords"_s, clRed, clWindow, {vtKeyWord}, {}},
    {u"QuotedValues"_s, clBlue, clWindow, {vtQuotedValue}, {}},
    {u"Numbers"_s, clBlue, clWindow, {vtNumber}, {}},
    {u"Parameters"_s, clNavy, clWindow, {vtParameter}, {}},
    {u"Fieldnames"_s, clWindowText, clWindow, {vtFieldName}, {}},
    {u"Comment"_s, clGreen, clWindow, {vtComment}, {}},
};

// clang-format off
QString ZtSqlKeyWords[176] = {
    u"ADD"_s, u"EXCEPT"_s, u"PERCENT"_s, u"ALL"_s, u"EXEC"_s, u"PLAN"_s, u"ALTER"_s, u"EXECUTE"_s,
    u"PRECISION"_s, u"AND"_s, u"EXISTS"_s, u"PRIMARY"_s, u"ANY"_s, u"EXIT"_s, u"PRINT"_s, u"AS"_s,
    u"FETCH"_s, u"PROC"_s, u"ASC"_s, u"FILE"_s, u"PROCEDURE"_s, u"AUTHORIZATION"_s, u"FILLFACTOR"_s,
    u"PUBLIC"_s, u"BACKUP"_s, u"FOR"_s, u"RAISERROR"_s, u"BEGIN"_s, u"FOREIGN"_s, u"READ"_s,
    u"BETWEEN"_s, u"FREETEXT"_s, u"READTEXT"_s, u"BREAK"_s, u"FREETEXTTABLE"_s, u"RECONFIGURE"_s,
    u"BROWSE"_s, u"FROM"_s, u"REFERENCES"_s, u"BULK"_s, u"FULL"_s, u"REPLICATION"_s, u"BY"_s,
    u"FUNCTION"_s, u"RESTORE"_s, u"CASCADE"_s, u"GOTO"_s, u"RESTRICT"_s, u"CASE"_s, u"GRANT"_s,
    u"RETURN"_s, u"CHECK"_s, u"GROUP"_s, u"REVOKE"_s, u"CHECKPOINT"_s, u"HAVING"_s, u"RIGHT"_s,
    u"CLOSE"_s, u"HOLDLOCK"_s, u"ROLLBACK"_s, u"CLUSTERED"_s, u"IDENTITY"_s, u"ROWCOUNT"_s,
    u"COALESCE"_s, u"IDENTITY_INSERT"_s, u"ROWGUIDCOL"_s, u"COLLATE"_s, u"IDENTITYCOL"_s, u"RULE"_s,
    u"COLUMN"_s, u"IF"_s, u"SAVE"_s, u"COMMIT"_s, u"IN"_s, u"SCHEMA"_s, u"COMPUTE"_s, u"INDEX"_s,
    u"SELECT"_s, u"CONSTRAINT"_s, u"INNER"_s, u"SESSION_USER"_s, u"CONTAINS"_s, u"INSERT"_s,
    u"SET"_s, u"CONTAINSTABLE"_s, u"INTERSECT"_s, u"SETUSER"_s, u"CONTINUE"_s, u"INTO"_s,
    u"SHUTDOWN"_s, u"CONVERT"_s, u"IS"_s, u"SOME"_s, u"CREATE"_s, u"JOIN"_s, u"STATISTICS"_s,
    u"CROSS"_s, u"KEY"_s, u"SYSTEM_USER"_s, u"CURRENT"_s, u"KILL"_s, u"TABLE"_s, u"CURRENT_DATE"_s,
    u"LEFT"_s, u"TEXTSIZE"_s, u"CURRENT_TIME"_s, u"LIKE"_s, u"THEN"_s, u"CURRENT_TIMESTAMP"_s,
    u"LINENO"_s, u"TO"_s, u"CURRENT_USER"_s, u"LOAD"_s, u"TOP"_s, u"CURSOR"_s, u"NATIONAL"_s, u""_s,
    u"TRAN"_s, u"DATABASE"_s, u"NOCHECK"_s, u"TRANSACTION"_s, u"DBCC"_s, u"NONCLUSTERED"_s,
    u"TRIGGER"_s, u"DEALLOCATE"_s, u"NOT"_s, u"TRUNCATE"_s, u"DECLARE"_s, u"NULL"_s, u"TSEQUAL"_s,
    u"DEFAULT"_s, u"NULLIF"_s, u"UNION"_s, u"DELETE"_s, u"OF"_s, u"UNIQUE"_s, u"DENY"_s, u"OFF"_s,
    u"UPDATE"_s, u"DESC"_s, u"OFFSETS"_s, u"UPDATETEXT"_s, u"DISK"_s, u"ON"_s, u"USE"_s,
    u"DISTINCT"_s, u"OPEN"_s, u"USER"_s, u"DISTRIBUTED"_s, u"OPENDATASOURCE"_s, u"VALUES"_s,
    u"DOUBLE"_s, u"OPENQUERY"_s, u"VARYING"_s, u"DROP"_s, u"OPENROWSET"_s, u"VIEW"_s, u"DUMMY"_s,
    u"OPENXML"_s, u"WAITFOR"_s, u"DUMP"_s, u"OPTION"_s, u"WHEN"_s, u"ELSE"_s, u"OR"_s, u"WHERE"_s,
    u"END"_s, u"ORDER"_s, u"WHILE"_s, u"ERRLVL"_s, u"OUTER"_s, u"WITH"_s, u"ESCAPE"_s, u"OVER"_s,
    u"WRITETEXT"_s, u"NEXT"_s,
};
// clang-format on

// What may stand before a word, a parameter and a number, what a number is made of, and what may
// follow it besides blanks.
static constexpr TZtCharSet WordStart{u' ', u'(', u')', u','};
static constexpr TZtCharSet ParameterStart{u' ', u'(', u','};
static constexpr TZtCharSet NumberStart{u' ', u'(', u',', u'.'};
static constexpr TZtCharSet NumberChars{u',', u'.', {u'0', u'9'}};
static constexpr TZtCharSet NumberEnd{u')', u','};
static constexpr TZtCharSet Letters{{u'A', u'Z'}, {u'a', u'z'}};
static constexpr TZtCharSet WordBegin{{u'A', u'Z'}, {u'a', u'z'}, u'_'};
static constexpr TZtCharSet WordChars{{u'A', u'Z'}, {u'a', u'z'}, {u'0', u'9'}, u'_', u'$', u'#'};

// Words of the SQL standard that `ZtSqlKeyWords` lacks, and those that most databases add to it.
static constexpr std::u16string_view MoreWords[] = {
    u"ALLOCATE",      u"ARRAY",       u"ATOMIC",
    u"BIGINT",        u"BINARY",      u"BLOB",
    u"BOOLEAN",       u"BOTH",        u"CALL",
    u"CALLED",        u"CAST",        u"CHAR",
    u"CHARACTER",     u"CLOB",        u"CONNECT",
    u"CORRESPONDING", u"CUBE",        u"CYCLE",
    u"DATE",          u"DEC",         u"DECIMAL",
    u"DEFERRABLE",    u"DESCRIBE",    u"DETERMINISTIC",
    u"DISCONNECT",    u"DO",          u"EACH",
    u"ELSEIF",        u"EXTERNAL",    u"EXTRACT",
    u"FALSE",         u"FILTER",      u"FLOAT",
    u"FREE",          u"GET",         u"GLOBAL",
    u"GROUPING",      u"HANDLER",     u"HOLD",
    u"IMMEDIATE",     u"INDICATOR",   u"INOUT",
    u"INT",           u"INTEGER",     u"INTERVAL",
    u"ITERATE",       u"LANGUAGE",    u"LATERAL",
    u"LEADING",       u"LEAVE",       u"LIMIT",
    u"LOCAL",         u"LOCALTIME",   u"LOCALTIMESTAMP",
    u"LOOP",          u"MATCH",       u"MERGE",
    u"METHOD",        u"MODIFIES",    u"NATURAL",
    u"NCHAR",         u"NCLOB",       u"NO",
    u"NONE",          u"NUMERIC",     u"OFFSET",
    u"ONLY",          u"OUT",         u"OVERLAPS",
    u"PARAMETER",     u"PARTITION",   u"PREPARE",
    u"RANGE",         u"READS",       u"REAL",
    u"RECURSIVE",     u"REFERENCING", u"RELEASE",
    u"RENAME",        u"REPEAT",      u"REPLACE",
    u"RESIGNAL",      u"RESULT",      u"RETURNING",
    u"RETURNS",       u"ROLLUP",      u"ROW",
    u"ROWS",          u"SAVEPOINT",   u"SCROLL",
    u"SIGNAL",        u"SIMILAR",     u"SMALLINT",
    u"SPECIFIC",      u"SQL",         u"START",
    u"SYMMETRIC",     u"TABLESAMPLE", u"TEMPORARY",
    u"TIME",          u"TIMESTAMP",   u"TRAILING",
    u"TREAT",         u"TRUE",        u"UNKNOWN",
    u"UNNEST",        u"UNTIL",       u"USING",
    u"VALUE",         u"VARBINARY",   u"VARCHAR",
    u"WINDOW",        u"WITHIN",      u"WITHOUT",
    u"ZONE",
};
static_assert(std::ranges::is_sorted(MoreWords));

static constexpr TZtSpan Spans[] = {
    {u"/*", u"*/", int(vtComment), true},
    {u"'", u"'", int(vtQuotedValue), true, true},
    {u"\"", u"\"", int(vtFieldName), true, true},
    {u"--", u"", int(vtComment)},
};

static constexpr TZtGrammar Grammar{int(vtLineBreak),           MoreWords, false, {u'$', u'#'},
                                    {u'@', u'_', {u'0', u'9'}}, Spans};

TZtCodeSqlParser::TZtCodeSqlParser(QObject *AOwner) : TZtLangParser(AOwner, ::Grammar)
{
    KeyWordTree = NewNode();
    for (const QString &KeyWord : ZtSqlKeyWords)
        AddKeyWord(KeyWord);
}

TZtCodeSqlParser::TNode *TZtCodeSqlParser::NewNode()
{
    return KeyWordNodes.emplace_back(std::make_unique<TNode>()).get();
}

void TZtCodeSqlParser::AddKeyWord(const QString &AKeyWord)
{
    const QString Upper = AKeyWord.toUpper();
    TNode *Node = KeyWordTree;
    for (const QChar C : Upper) {
        const int Index = C.unicode() - u'A';
        // The message names the character twice; the keyword is not in it.
        if (Index < 0 || Index >= TNode::CharCount)
            throw EZtException(u"Invalid Character \"%1\" in keyword \"%1\" "_s.arg(C));
        if (!Node->Next[Index])
            Node->Next[Index] = NewNode();
        Node = Node->Next[Index];
    }
    Node->Next[TNode::EndMark] = NewNode();
}

void TZtCodeSqlParser::Reset()
{
    TZtLangParser::Reset();
    LastChar = u' ';
    InComment = false;
}

QString TZtCodeSqlParser::GetLanguage() const { return u"Sql"_s; }

int TZtCodeSqlParser::GetOwnState() const { return InComment ? 1 : 0; }

void TZtCodeSqlParser::SetOwnState(int Value)
{
    InComment = Value != 0;
    LastChar = u' ';
}

template <bool Corrected> inline TZtSqlToken TZtCodeSqlParser::ReadNextToken(QString &AToken)
{
    const char16_t C = ReadChar();
    if (C == u'\0') {
        AToken.resize(0);
        return vtEndOfFile;
    }
    int Closed = -1;
    if (Corrected) {
        Closed = ReadClosed(C, AToken);
        if (Closed < 0 && HasMoreWords() && !InComment && WordBegin.contains(C))
            Closed = int(WholeWordToken(C, AToken));
    }
    TZtSqlToken Kind = TZtSqlToken(Closed);
    if (Closed < 0) {
        AToken = QChar(C);
        const bool InOpenComment = InComment && C != u'\n' && C != u'\r';
        Kind = InOpenComment ? BlockComment(C, AToken) : ReadToken(C, AToken);
    }
    LastChar = Kind == vtLineBreak ? u' ' : ReadCurrChar();
    return Kind;
}

TZtSqlToken TZtCodeSqlParser::InternalGetNextToken(QString &AToken)
{
    if (IsCorrected()) [[unlikely]]
        return CorrectedToken(AToken);
    return ReadNextToken<false>(AToken);
}

TZtSqlToken TZtCodeSqlParser::CorrectedToken(QString &AToken)
{
    const TZtSqlToken Kind = ReadNextToken<true>(AToken);
    NoteToken(AToken);
    return Kind;
}

TZtSqlToken TZtCodeSqlParser::ReadToken(char16_t C, QString &AToken)
{
    switch (C) {
    case u'\r':
        return LineBreakToken(AToken);
    case u'\n':
        return vtUnknown;
    case u'\'':
        return QuotedToken(AToken);
    case u'-':
        return DashToken(AToken);
    case u'/':
        return PeekChar() == u'*' ? BlockComment(C, AToken) : vtUnknown;
    case u'@':
        return ParameterToken(AToken);
    default:
        break;
    }
    if (Letters.contains(C))
        return WordToken(AToken);
    if (C >= u'0' && C <= u'9')
        return NumberToken(AToken);
    if (C < u' ')
        AToken.resize(0);
    return vtUnknown;
}

TZtSqlToken TZtCodeSqlParser::LineBreakToken(QString &AToken)
{
    if (PeekChar() == u'\n')
        AToken.append(QChar(ReadChar()));
    return vtLineBreak;
}

// A doubled quote is no escape: it ends the value, and the next one begins.
TZtSqlToken TZtCodeSqlParser::QuotedToken(QString &AToken)
{
    char16_t C;
    do {
        C = ReadChar();
        if (C < u' ') {
            PushChar(C);
            break;
        }
        AToken.append(QChar(C));
    } while (C != u'\'');
    return vtQuotedValue;
}

TZtSqlToken TZtCodeSqlParser::DashToken(QString &AToken)
{
    if (PeekChar() != u'-')
        return vtUnknown;
    char16_t C = ReadChar();
    for (; C >= u' '; C = ReadChar())
        AToken.append(QChar(C));
    PushChar(C);
    return vtComment;
}

// A comment that is open at the line end goes on in the next line.
TZtSqlToken TZtCodeSqlParser::BlockComment(char16_t C, QString &AToken)
{
    const auto AtEnd = [this](char16_t Last) { return Last == u'*' && PeekChar() == u'/'; };
    if (!AtEnd(C)) {
        // The first character is taken unseen: a line of one character has its CR in the comment.
        bool Last;
        do {
            C = ReadChar();
            AToken.append(QChar(C));
            const char16_t Next = C == u'\0' ? C : PeekChar();
            Last = C == u'\0' || Next == u'\n' || Next == u'\r' || (C == u'*' && Next == u'/');
        } while (!Last);
    }
    InComment = PeekChar() != u'/';
    if (!InComment)
        AToken.append(QChar(ReadChar()));
    return vtComment;
}

// A number that something else runs into leaves its first digit; the rest of it is not shown.
TZtSqlToken TZtCodeSqlParser::NumberToken(QString &AToken)
{
    if (!NumberStart.contains(LastChar))
        return vtUnknown;
    char16_t C = ReadChar();
    for (; NumberChars.contains(C); C = ReadChar())
        AToken.append(QChar(C));
    PushChar(C);
    if (C <= u' ' || NumberEnd.contains(C))
        return vtNumber;
    AToken.resize(1);
    return vtUnknown;
}

// Only a blank or a control character ends a parameter, so ")" and "," belong to it.
TZtSqlToken TZtCodeSqlParser::ParameterToken(QString &AToken)
{
    if (!ParameterStart.contains(LastChar))
        return vtUnknown;
    char16_t C = ReadChar();
    for (; C > u' '; C = ReadChar())
        AToken.append(QChar(C));
    PushChar(C);
    return vtParameter;
}

// Reads as far as the tree goes, and the letter that leaves it. A word that goes on from there is
// text letter by letter, and a "_" always ends the walk.
TZtSqlToken TZtCodeSqlParser::WordToken(QString &AToken)
{
    if (!WordStart.contains(LastChar))
        return vtUnknown;
    const auto Child = [](const TNode *Node, char16_t C) { return Node->Next[(C & ~0x20) - u'A']; };
    const TNode *Node = Child(KeyWordTree, AToken.at(0).unicode());
    char16_t C = ReadChar();
    for (; Node && Letters.contains(C); C = ReadChar()) {
        Node = Child(Node, C);
        AToken.append(QChar(C));
    }
    PushChar(C);
    return Node && Node->Next[TNode::EndMark] ? vtKeyWord : vtUnknown;
}

TZtSqlToken TZtCodeSqlParser::WholeWordToken(char16_t C, QString &AToken)
{
    TZtTokenText Text = {C};
    ReadRun(WordChars, Text);
    SetToken(AToken, Text);
    const std::u16string_view Word(Text.constData(), size_t(Text.size()));
    const TNode *Node = KeyWordTree;
    for (size_t i = 0; Node && i < Word.size(); ++i) {
        const size_t Index = size_t((Word[i] & ~0x20) - u'A');
        Node = Index < TNode::CharCount ? Node->Next[Index] : nullptr;
    }
    const bool Listed = (Node && Node->Next[TNode::EndMark]) || IsMoreWord(Word);
    return Listed && IsWholeWord() ? vtKeyWord : vtUnknown;
}

bool TZtCodeSqlParser::GetNextToken(QString &AToken, TColor &ABackGround, TColor &ATextColor,
                                    TFontStyles &AFontStyle, bool &ALineBreak)
{
    const TZtSqlToken Kind = InternalGetNextToken(AToken);
    TakeStyle(DrawInfo, Kind, ABackGround, ATextColor, AFontStyle);
    ALineBreak = Kind == vtLineBreak;
    return Kind != vtInvalid && Kind != vtEndOfFile;
}

QString TZtCodeSqlParser::PeekString(int Count)
{
    QString Result;
    Result.reserve(qMax(Count, 0));
    for (int i = 0; i < Count; ++i)
        Result.append(QChar(ReadChar()));
    PushStr(Result);
    return Result;
}
