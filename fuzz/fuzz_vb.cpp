#include "lexer.h"
#include "uZtCodeVBParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtCodeVBParser, TVBToken::vtEndOfFile>(AData, ASize);
    return 0;
}
