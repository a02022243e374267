#include "lexing.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(Elements, TheTableIsThatOfTheLexers)
{
    std::map<QString, QStringList> listed, lexed;
    for (const TZtLanguageElements &language : ZtLanguageElements())
        for (const QLatin1StringView element : language.Elements)
            listed[language.Language] += element;
    for (const TZtTokenLanguage &language : ZtTokenLanguages()) {
        const auto parser = language.CreateParser();
        lexed[parser->GetLanguage()] = parser->GetElements();
    }
    EXPECT_EQ(listed, lexed);
}

} // namespace
