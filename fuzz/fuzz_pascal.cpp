#include "lexer.h"
#include "uZtCodePascalParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtCodePascalParser, TPascalToken::ptEndOfFile>(AData, ASize);
    return 0;
}
