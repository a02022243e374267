#include "Methods.h"

#include "Document.h"
#include "MethodIndex.h"

#include "uZtCodeEdit.h"
#include "uZtCodeJSParser.h"
#include "uZtCodeVBParser.h"

std::unique_ptr<TZtLangParser> ZtScriptLexerOf(const TDocument &ADocument)
{
    const TZtLanguage &language = ADocument.Language();
    std::unique_ptr<TZtLangParser> lexer(language.CreateParser ? language.CreateParser(nullptr)
                                                               : nullptr);
    if (!qobject_cast<TZtCodeVBParser *>(lexer.get()) &&
        !qobject_cast<TZtCodeJSParser *>(lexer.get()))
        return nullptr;
    lexer->OnGetNewBuffer = TLineFeed(ADocument.Editor()->GetLines());
    return lexer;
}

TMethodIndex *ZtMethodIndexOf(const TDocument &ADocument)
{
    auto lexer = ZtScriptLexerOf(ADocument);
    TZtCodeEdit *editor = ADocument.Editor();
    auto *index = editor->findChild<TMethodIndex *>(QString(), Qt::FindDirectChildrenOnly);
    if (index && lexer && index->Lexer().metaObject() == lexer->metaObject())
        return index;
    delete index; // of another language
    if (!lexer)
        return nullptr;
    index = new TMethodIndex(editor->GetLines(), std::move(lexer), editor);
    QObject::connect(editor, &TZtCodeEdit::textChanged, index, &TMethodIndex::TextChanged);
    return index;
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
