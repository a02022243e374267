#include "lexer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtLangParser, TlngToken::tEndOfFile>(AData, ASize);
    return 0;
}
