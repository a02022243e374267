#include "lexer.h"
#include "uZtCodeJSParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtCodeJSParser, TJSToken::vtEndOfFile>(AData, ASize);
    return 0;
}
