#include "session.h"

#include "Document.h"
#include "FileStore.h"
#include "SaveFlow.h"
#include "SideFile.h"

#include "uZtCodeEdit.h"
#include "uZtException.h"
#include "uZtPlatform.h"

#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QRegularExpression>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const QString &AShown)
{
    return QByteArray::fromPercentEncoding(AShown.toUtf8());
}

QString Before(const QString &AArgument) { return AArgument.section(u'=', 0, 0); }
QString After(const QString &AArgument) { return AArgument.section(u'=', 1); }

} // namespace

QString ShownBytes(const QByteArray &ABytes)
{
    return QString::fromLatin1(ABytes.toPercentEncoding("!\"#$&'()*+,/:;<=>?@[]^`{|}"));
}

THostSession::THostSession() : Answer(mrYes)
{
    const auto box = [this](const QString &text, const QString &) { return Box(text); };
    ZtPlatform().MsgBoxInfo = box;
    ZtPlatform().MsgBoxError = box;
    ZtPlatform().MsgBoxConfirm = box;
    ZtPlatform().MsgBoxYesNo = box;
    ZtPlatform().MsgBoxYesNoCancel = box;
    ZtPlatform().ShowException = [this](const QString &message) { Fault(message); };
    ZtPlatform().ClipboardText = [this] { return Clipboard; };
    ZtPlatform().SetClipboardText = [this](const QString &text) { Clipboard = text; };
    ZtPlatform().KeyboardShift = [] { return TShiftState(); };
    std::signal(SIGXFSZ, SIG_IGN);
    AddFileWords();
    AddProgramWords();
    AddTextWords();
    AddSaveWords();
}

THostSession::~THostSession()
{
    Window.reset();
    ZtPlatform() = ZtDefaultPlatform();
}

QString THostSession::Do(const QString &AWords)
{
    FLog.clear();
    for (const QString &step : AWords.split(u' ', Qt::SkipEmptyParts)) {
        const TAction action = Words.value(step.section(u':', 0, 0));
        if (!action) {
            Say(u"unknown word "_s + step);
            break;
        }
        try {
            action(step.section(u':', 1));
        } catch (const EZtException &error) {
            Fault(error.Message());
        }
    }
    return FLog.join(u' ');
}

QString THostSession::Path(const QString &AName) const
{
    return AName == u'.' ? Folder.path() : AName.isEmpty() ? AName : Folder.filePath(AName);
}

TZtCodeEdit *THostSession::Editor() const { return Document()->Editor(); }

QString THostSession::Text() const { return Editor()->GetText().replace(u"\r\n"_s, u"/"_s); }

int THostSession::Box(const QString &AText)
{
    Asked += QString(AText).replace(Folder.path(), u"~"_s);
    Say(u"?"_s);
    return Answer;
}

void THostSession::Fault(const QString &AMessage)
{
    Box(AMessage);
    FLog.last() = u"!"_s;
}

// What other programs do.
void THostSession::AddFileWords()
{
    Words[u"write"_s] = [this](const QString &file) {
        QFile to(Path(Before(file)));
        EXPECT_TRUE(to.open(QIODevice::WriteOnly));
        to.write(BytesOf(After(file)));
    };
    Words[u"dir"_s] = [this](const QString &name) { QDir().mkdir(Path(name)); };
    Words[u"pipe"_s] = [this](const QString &name) { mkfifo(Local(name).constData(), 0600); };
    Words[u"remove"_s] = [this](const QString &name) { QFile::remove(Path(name)); };
    Words[u"link"_s] = [this](const QString &link) {
        QFile::link(After(link), Path(Before(link)));
    };
    Words[u"hard"_s] = [this](const QString &name) {
        if (link(Local(After(name)).constData(), Local(Before(name)).constData()) != 0)
            Say(qt_error_string());
    };
    Words[u"mode"_s] = [this](const QString &mode) {
        chmod(Local(Before(mode)).constData(), After(mode).toUInt(nullptr, 8));
    };
    Words[u"touch"_s] = [this](const QString &name) {
        utimensat(AT_FDCWD, Local(name).constData(), nullptr, 0);
    };
    Words[u"read"_s] = [this](const QString &name) {
        Say(u'<' + ShownBytes(ZtReadFile(Path(name))) + u'>');
    };
    Words[u"modeof"_s] = [this](const QString &name) {
        struct stat status = {};
        stat(Local(name).constData(), &status);
        Say(QString::number(status.st_mode & 07777, 8));
    };
    Words[u"names"_s] = [this](const QString &) { Say(Names()); };
}

// Without the digits that are found by chance, and with a mark for links.
QString THostSession::Names() const
{
    QStringList names;
    const auto all = QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QFileInfo &info : QDir(Folder.path()).entryInfoList(all))
        names += info.fileName() + (info.isSymLink() ? u"@"_s : QString());
    names.replaceInStrings(QRegularExpression(u"\\.[0-9a-f]{16}\\."_s), u".#."_s);
    names.sort();
    return names.join(u',');
}

// The program without its window.
void THostSession::AddProgramWords()
{
    Words[u"store"_s] = [this](const QString &file) {
        const QStringList lost = ZtSaveFile(Path(Before(file)), BytesOf(After(file)));
        if (!lost.isEmpty())
            Say(lost.join(u", "_s));
    };
    Words[u"room"_s] = [](const QString &bytes) {
        rlimit limit = {};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = bytes.isEmpty() ? limit.rlim_max : bytes.toUInt();
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    Words[u"offer"_s] = [this](const QString &name) { ZtOfferRestore(Path(name)); };
    Words[u"inuse"_s] = [this](const QString &name) {
        FSideFiles.push_back(std::make_unique<TZtSideFile>(Path(name)));
        struct stat status = {};
        fstat(FSideFiles.back()->Handle(), &status);
        Say(QString::number(status.st_mode & 07777, 8));
    };
    Words[u"backup"_s] = [this](const QString &name) {
        FSideFiles.push_back(std::make_unique<TZtSideFile>(Path(name)));
        FSideFiles.back()->BecomeBackup();
    };
}

void THostSession::AddTextWords()
{
    const auto paths = [this](const QString &names) {
        QStringList all;
        for (const QString &name : names.split(u','))
            all += Path(name);
        return all;
    };
    Words[u"new"_s] = [this](const QString &) { Window->NewDocument(); };
    Words[u"open"_s] = [this](const QString &name) { Window->OpenFile(Path(name)); };
    Words[u"openfiles"_s] = [this, paths](const QString &names) {
        Window->OpenFiles(paths(names));
    };
    Words[u"begin"_s] = [this, paths](const QString &names) {
        Say(QString::number(Window->OpenEach(paths(names), &TMainWindow::OpenOrBegin).size()));
    };
    Words[u"load"_s] = [this](const QString &name) { Document()->Load(Path(name)); };
    Words[u"type"_s] = [this](const QString &text) {
        Editor()->InsertText(TZtChangeType::ctPaste, QString::fromUtf8(BytesOf(text)));
    };
    Words[u"surrogate"_s] = [this](const QString &) {
        Editor()->InsertText(TZtChangeType::ctPaste, QString(QChar(0xD83D)));
    };
    Words[u"menu"_s] = [this](const QString &name) { ChooseInMenu(name); };
    Words[u"plain"_s] = [this](const QString &) { Document()->SetLanguage(ZtLanguages()[0]); };
    Words[u"language"_s] = [this](const QString &) {
        Say(QLatin1StringView(Document()->Language().Name));
    };
    Words[u"goto"_s] = [this](const QString &line) {
        Document()->GoToLine(line.toInt());
        const int page = Editor()->GetVScrollBar()->GetPageSize();
        const int top = Editor()->GetVScrollBar()->GetPosition();
        const int at = Editor()->GetLinePos();
        const bool last = top == Editor()->GetLines()->GetCount() - page;
        Say(u"%1:%2"_s.arg(at).arg(last                   ? u"end"_s
                                   : top == at - page / 2 ? u"middle"_s
                                                          : QString::number(top)));
    };
    Words[u"text"_s] = [this](const QString &) { Say(Text()); };
    Words[u"canundo"_s] = [this](const QString &) { Say(Editor()->GetCanUndo()); };
    Words[u"tabs"_s] = [this](const QString &) { Say(Tabs()); };
    Words[u"clipboard"_s] = [this](const QString &) { Say(Clipboard); };
}

// An item of the menu Edit, which says whether it was enabled.
void THostSession::ChooseInMenu(const QString &AName)
{
    QMenu *menu = Window->menuBar()->actions().at(1)->menu();
    Q_EMIT menu->aboutToShow();
    for (QAction *action : menu->actions()) {
        const QString text = action->text().remove(u'&').section(u'\t', 0, 0);
        if (text == QString(AName).replace(u'_', u' ')) {
            Say(action->isEnabled());
            action->trigger();
            QApplication::processEvents();
        }
    }
}

// The one in front in brackets, with a star for changes.
QString THostSession::Tabs() const
{
    QStringList tabs;
    for (int i = 0; i < Window->DocumentCount(); ++i) {
        const TDocument *document = Window->Document(i);
        const QString tab = document->Title() + (document->IsModified() ? u"*"_s : QString());
        tabs += document == Document() ? u'[' + tab + u']' : tab;
    }
    return tabs.join(u',');
}

void THostSession::AddSaveWords()
{
    Words[u"yes"_s] = [this](const QString &) { Answer = mrYes; };
    Words[u"no"_s] = [this](const QString &) { Answer = mrNo; };
    Words[u"cancel"_s] = [this](const QString &) { Answer = mrCancel; };
    Words[u"save"_s] = [this](const QString &) { Say(Window->Save(Document())); };
    Words[u"saveas"_s] = [this](const QString &name) {
        Say(ZtSaveDocumentAs(*Document(), Path(name)));
    };
    Words[u"closetab"_s] = [this](const QString &) { Say(Window->CloseDocument(Document())); };
    Words[u"close"_s] = [this](const QString &) { Say(Window->close()); };
    Words[u"changed"_s] = [this](const QString &) {
        QString reason;
        const int change = int(Document()->ChangeOnDisk(reason));
        const QString names[] = {u"none"_s, u"changed"_s, u"missing"_s, u"unknown"_s};
        Say(names[change] + (reason.isEmpty() ? QString() : u'?' + reason.section(u' ', 0, 0)));
    };
}
