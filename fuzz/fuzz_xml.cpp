#include "lexer.h"
#include "uZtCodeXmlParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *AData, size_t ASize)
{
    TLexerCheck<TZtCodeXMLParser, TZtXmlToken::vtEndOfFile>(AData, ASize);
    return 0;
}
