// KTextEditor, with line numbers and all that it shows by default, measured on the tasks of
// compare.

#include "tasks.h"

#include <KTextEditor/ConfigInterface>
#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/View>

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QStandardPaths>
#include <QUrl>

namespace {

class TKTextEditorPeer : public TPeer {
public:
    TKTextEditorPeer() : FDocument(KTextEditor::Editor::instance()->createDocument(nullptr))
    {
        FView = FDocument->createView(nullptr);
        QFont font(QStringLiteral("Courier new"), 10);
        font.setFixedPitch(true);
        auto *config = qobject_cast<KTextEditor::ConfigInterface *>(FView);
        config->setConfigValue(QStringLiteral("font"), font);
        config->setConfigValue(QStringLiteral("dynamic-word-wrap"), false);
        config->setConfigValue(QStringLiteral("line-numbers"), true);
        config->setConfigValue(QStringLiteral("icon-bar"), true);
    }
    ~TKTextEditorPeer() override { delete FView; }
    QWidget *Widget() override { return FView; }
    QWidget *KeyTarget() override { return FView->focusProxy(); }
    void SetLanguage(TLanguage ALanguage) override
    {
        static const char *const names[] = {"JavaScript", "XML", "SQL"};
        FMode = QLatin1String(names[int(ALanguage)]);
        FDocument->setHighlightingMode(FMode);
    }
    void LoadFile(const QString &AFileName) override
    {
        FDocument->openUrl(QUrl::fromLocalFile(AFileName));
        FDocument->setHighlightingMode(FMode);
    }
    int LineCount() override { return FDocument->lines(); }
    void MoveTo(int ALine, int AColumn) override { FView->setCursorPosition({ALine, AColumn}); }
    bool Find(const QString &S, bool ACase, bool AWholeWords) override
    {
        const KTextEditor::Range found = Next({0, 0}, S, Options(ACase, AWholeWords));
        if (found.isValid())
            FView->setSelection(found);
        return found.isValid();
    }
    int ReplaceAll(const QString &S, const QString &AWith) override
    {
        const KTextEditor::Document::EditingTransaction transaction(FDocument.get());
        QElapsedTimer timer;
        timer.start();
        int count = 0;
        KTextEditor::Cursor from(0, 0);
        for (KTextEditor::Range at = Next(from, S, Options(true, false));
             at.isValid() && timer.elapsed() < 20'000;
             at = Next(from, S, Options(true, false)), ++count) {
            FDocument->replaceText(at, AWith);
            from = {at.start().line(), at.start().column() + AWith.size()};
        }
        return count;
    }
    void Paste() override { FView->action("edit_paste")->trigger(); }
    bool ColourAll() override { return false; } // it does so when the end is shown first
    // The text area and the margin beside it.
    void RepaintUnchanged() override
    {
        for (QWidget *part : FView->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            if (part->isVisible() && !qobject_cast<QScrollBar *>(part))
                part->update();
    }

private:
    static KTextEditor::SearchOptions Options(bool ACase, bool AWholeWords)
    {
        KTextEditor::SearchOptions options;
        options.setFlag(KTextEditor::CaseInsensitive, !ACase);
        options.setFlag(KTextEditor::WholeWords, AWholeWords);
        return options;
    }
    KTextEditor::Range Next(const KTextEditor::Cursor &AFrom, const QString &S,
                            KTextEditor::SearchOptions AOptions) const
    {
        return FDocument->searchText({AFrom, FDocument->documentEnd()}, S, AOptions).first();
    }

    std::unique_ptr<KTextEditor::Document> FDocument;
    KTextEditor::View *FView; // gone before its document
    QString FMode;
};

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true); // its own settings, not the user's
    const QApplication app(argc, argv);
    QCommandLineParser line;
    line.addHelpOption();
    const QCommandLineOption texts(QStringLiteral("texts"),
                                   QStringLiteral("The folder with the texts to measure on."),
                                   QStringLiteral("folder"));
    line.addOption(texts);
    line.addPositionalArgument(QStringLiteral("groups"), QStringLiteral("As compare has them."));
    line.process(app);
    // It cuts lines of more than 10,000 characters, so the line of 10 MB is no task for it.
    QStringList groups = line.positionalArguments();
    if (groups.isEmpty())
        groups = QStringList{QStringLiteral("large"), QStringLiteral("pages"),
                             QStringLiteral("editing")};
    groups.removeAll(QStringLiteral("line"));
    if (groups.isEmpty())
        return 0;
    const TPeerKind kind{"KTextEditor", TSet::Complete, false,
                         [] { return std::make_unique<TKTextEditorPeer>(); }};
    MeasureTasks(kind, line.value(texts), groups);
    return 0;
}
