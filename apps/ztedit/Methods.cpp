#include "Methods.h"

#include "Document.h"

#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"

namespace {

// Reads the headers. The word of a method behind the token `AEnd` starts none.
template <typename TToken>
std::vector<TScriptMethod> ReadMethods(TZtScriptLexer<TToken> &ALexer, TToken AEnd)
{
    std::vector<TScriptMethod> methods;
    QString text;
    TToken before = TToken::vtUnknown;
    for (TToken kind = ALexer.GetNextRealToken(text); kind != TToken::vtEndOfFile;
         kind = ALexer.GetNextRealToken(text)) {
        const bool header = (before == TToken::vtFunction || before == TToken::vtSub) &&
                            kind == TToken::vtIdentifier;
        if (header)
            methods.push_back({text, ALexer.GetLineNr()});
        const bool word = kind == TToken::vtFunction || kind == TToken::vtSub;
        before = word && before == AEnd ? TToken::vtUnknown : kind;
    }
    return methods;
}

} // namespace

std::unique_ptr<TZtLangParser> ZtScriptLexerOf(const TDocument &ADocument)
{
    const TLanguage &language = ADocument.Language();
    std::unique_ptr<TZtLangParser> lexer(language.CreateParser ? language.CreateParser(nullptr)
                                                               : nullptr);
    if (!qobject_cast<TZtCodeVBParser *>(lexer.get()) &&
        !qobject_cast<TZtCodeJSParser *>(lexer.get()))
        return nullptr;
    const TStringList *lines = ADocument.Editor()->GetLines();
    lexer->OnGetNewBuffer = [lines, next = 0](bool reset, QString &text) mutable {
        if (reset) {
            next = 0;
            return true;
        }
        if (next >= lines->GetCount())
            return false;
        text.clear();
        lines->AppendTo(next++, text);
        text += QLatin1StringView("\r\n");
        return true;
    };
    return lexer;
}

std::vector<TScriptMethod> ZtMethodsOf(const TDocument &ADocument)
{
    const auto lexer = ZtScriptLexerOf(ADocument);
    if (auto *vb = qobject_cast<TZtCodeVBParser *>(lexer.get()))
        return ReadMethods(*vb, TVBToken::vtEnd);
    // A "}" reads as the end of something too, but what follows it may be a method.
    if (auto *js = qobject_cast<TZtCodeJSParser *>(lexer.get()))
        return ReadMethods(*js, TJSToken::vtEndOfFile);
    return {};
}

void ZtInsertMethod(TDocument &ADocument, const QString &ACode, TInsertPlace APlace)
{
    TZtCodeEdit *editor = ADocument.Editor();
    const QStringList lines = ACode.split(QStringLiteral("\r\n"));
    qsizetype body = 0;
    while (body + 1 < lines.size() && !lines[body].endsWith(QLatin1StringView("  ")))
        ++body;
    int start = editor->GetLinePos();
    if (APlace == TInsertPlace::End) {
        // AddCode inserts in front of the last line, which therefore has to be an empty one.
        const TStringList *text = editor->GetLines();
        const int last = text->GetCount() - 1;
        if (last >= 0 && text->GetLength(last) > 0)
            editor->InsertCode(last, text->GetLength(last), QStringLiteral("\r\n"));
        start = qMax(text->GetCount() - 1, 0);
        editor->AddCode(ACode);
    } else {
        editor->InsertText(TZtChangeType::ctPaste, ACode);
    }
    editor->SetLinePos(start + int(body));
    editor->SetCharPos(int(lines[body].size()));
}
