#include "lexer.h"
#include "uZtCodeSqlParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtCodeSqlParser, TZtSqlToken::vtEndOfFile>(AData, ASize);
    return 0;
}
