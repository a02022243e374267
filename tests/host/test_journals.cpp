#include "Document.h"
#include "LineDiff.h"
#include "SaveFlow.h"
#include "session.h"

#include "uZtCodeEdit.h"
#include "uZtStringStream.h"

#include <QApplication>
#include <QPushButton>
#include <QThread>
#include <qtestsupport_core.h>

#include <chrono>
#include <csignal>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

TEST(Journals, AreThereAsLongAsSomethingIsNotSaved)
{
    CheckSessions({
        {"write:a=one%0A open:a journals type:x journals save journals", "{} {600} + {}"},
        {"new type:x journals no closetab journals", "{600} ? + {}"},
        {"new type:x cancel closetab journals no close journals", "? - {600} ? + {}"},
        {"begin:a type:x journals save journals read:a", "{600} + {} <x%0A>"},
        // A save that fails or is refused keeps it.
        {"write:a=one open:a type:x write:a=two no save journals", "? - {600}"},
        {"write:a=one%0A open:a type:x journals saveas:./b/c journals", "{600} ? - {600}"},
        {"write:a=one open:a type:x yes menu:Reload journals text", "+ ? {} one/"},
    });
    THostSession session;
    session.Do(u"new type:x journals"_s);
    EXPECT_EQ(QFile::permissions(ZtJournalFolder()).toInt(), 0x7700) << "the user's alone";
}

TEST(Journals, BringBackWhatACrashTook)
{
    CheckSessions({
        {"write:a=one%0A crash:open:a,type:x restore start tabs text journals save read:a journals",
         "? [a*] xone/ {600} + <xone%0A> {}",
         "\"~/a\" was not saved when the program was cut short"},
        // The journal of the text that came back is the only one, and is enough.
        {"write:a=one%0A crash:open:a,type:x crash:restore,start,type:y restore start text "
         "journals",
         "? yxone/ {600}"},
        {"crash:new,type:x%0Ay restore start tabs text journals", "? [Untitled 1*] x/y/ {600}",
         "A text without a name was not saved"},
        {"new crash:new,type:x restore start tabs", "? [Untitled 2*]"},
        {"crash:begin:a,type:x restore start tabs text save read:a", "? [a*] x/ + <x%0A>",
         "There is no file of this name"},
        {"write:a=one%0D%0A%C3%A4 crash:open:a,type:x remove:a restore start tabs save read:a",
         "? [a*] + <xone%0D%0A%C3%A4>"},
        // Nothing is lost before the answer, nor by putting it off.
        {"write:a=one crash:open:a,type:x later start open:a text journals restore open:a "
         "closetab restore open:a text",
         "? ? one/ {600} + ? xone/"},
        {"write:a=one crash:open:a,type:x discard no start journals discard yes start journals",
         "? ? ? {600} ? ? {}", "give up for good"},
        {"write:a=one crash:open:a,type:x restore open:a text start text", "one/ ? xone/"},
        // Nothing that there would be to see.
        {"write:a=one%0A crash:open:a,type:x write:a=xone%0A start tabs journals", " {}"},
        {"write:a=one%0A crash:open:a,type:x,save start journals", "{}"},
        // What is saved is not asked about; what came after is.
        {"write:a=one%0A crash:open:a,type:x,save,type:y restore start text", "? xyone/"},
        // The file has no break for the empty line that the caret is in.
        {"write:a= crash:open:a,type:x%0A,save,type:y restore start text", "? x/y/"},
    });
}

TEST(Journals, OfAFileThatOthersChangedComeBackBesideIt)
{
    CheckSessions({
        {"write:a.pas=one%0A crash:open:a.pas,type:x write:a.pas=two%0A restore start tabs text "
         "language read:a.pas journals",
         "? a.pas,[a.pas.restored*] xone/ Pascal <two%0A> {600}",
         "The file was changed since then."},
        {"write:a=one%0A crash:open:a,type:x crash:open:a,type:y restore restore start tabs "
         "journals",
         "? ? a*,[a.restored*] {600,600}"},
    });
}

// It asks with a dialog; Enter restores, Esc puts it off.
TEST(Journals, TheDialogShowsWhatComesBack)
{
    TStringList before, after;
    before.SetText(u"one\ntwo\nthree\n"_s);
    after.SetText(u"one\n2\nthree\n"_s);
    TRestoreDialog dialog({u"Note"_s, &before, &after});
    const auto *view = dialog.findChild<TZtCodeEdit *>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->GetLines()->GetText().isEmpty(); }, 20'000));
    EXPECT_EQ(view->GetLines()->GetText(),
              u"--- in the file\r\n+++ restored\r\n@@ -1,3 +1,3 @@\r\n one\r\n"
              "-two\r\n+2\r\n three\r\n"_s);
    for (const auto *button : dialog.findChildren<QPushButton *>())
        EXPECT_EQ(button->isDefault(), button->text() == u"&Restore"_s);
    dialog.reject();
    EXPECT_EQ(dialog.result(), TRestoreDialog::Later);
    EXPECT_EQ(TRestoreDialog({u"Note"_s, nullptr, &after})
                  .findChild<TZtCodeEdit *>()
                  ->GetLines()
                  ->GetText(),
              after.GetText());
}

TEST(Journals, ADifferenceThatIsNotToBeHadIsEmpty)
{
    TStringList before, after;
    after.SetText(u"x\n"_s.repeated(5'000'000));
    TLineDiff diff;
    QStringList told;
    QObject::connect(&diff, &TLineDiff::Finished, [&](const QString &text) { told += text; });
    diff.Start(before, u"a"_s, after, u"b"_s);
    QApplication::processEvents();
    EXPECT_EQ(told, QStringList(QString()));
}

// --- killed while typing -------------------------------------------------------------------------

namespace {

using TClock = std::chrono::steady_clock;

// The text after so many keys.
QString TextAfter(int AKeys)
{
    QString text;
    for (int i = 0; i < AKeys; ++i)
        text += i % 7 == 6 ? QChar(u'\n') : QChar(u'a' + i % 26);
    return text;
}

// Types 50 keys a second, tells when each was done, and saves now and then.
[[noreturn]] void Type(THostSession &ASession, int ATold, unsigned ASeed)
{
    std::minstd_rand random(ASeed);
    ASession.Do(u"open:a"_s);
    for (int i = 0; i < 1000; ++i) {
        ASession.Editor()->InsertText(TZtChangeType::ctPaste, TextAfter(i + 1).last(1));
        const TClock::time_point now = TClock::now();
        if (write(ATold, &now, sizeof now) != sizeof now)
            break;
        if (random() % 20 == 0)
            ZtSaveDocument(*ASession.Document());
        QThread::msleep(20);
    }
    _exit(0);
}

// What the user has after the next start: what comes back, or else the file.
QString ComesBack(THostSession &ASession)
{
    ASession.Do(u"restore open:a start"_s);
    const QString text = ASession.Editor()->GetLines()->GetText().remove(u'\r');
    return text.chopped(text.isEmpty() ? 0 : 1); // the end of the last line
}

class TKilledTyping {
public:
    explicit TKilledTyping(unsigned ASeed)
    {
        FSession.Do(u"write:a="_s);
        EXPECT_EQ(pipe(FTold), 0);
        FProcess = fork();
        if (FProcess == 0)
            Type(FSession, FTold[1], ASeed);
        close(FTold[1]);
    }
    ~TKilledTyping() { close(FTold[0]); }
    TKilledTyping(const TKilledTyping &) = delete;

    void Kill()
    {
        kill(FProcess, SIGKILL);
        FKilled = TClock::now();
        int status = 0;
        EXPECT_EQ(waitpid(FProcess, &status, 0), FProcess);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it left by itself";
    }
    void Check()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(FSession.State.path()));
        const QString back = ComesBack(FSession);
        int count = 0, old = 0;
        for (TClock::time_point typed; read(FTold[0], &typed, sizeof typed) > 0; ++count)
            old += typed < FKilled - std::chrono::seconds(1);
        bool found = false;
        for (int i = old; i <= count + 1; ++i) // the last one may not have been counted yet
            found = found || back == TextAfter(i);
        EXPECT_TRUE(found) << old << " to " << count << " keys: " << back.toStdString();
    }

private:
    THostSession FSession;
    int FTold[2] = {};
    pid_t FProcess = 0;
    TClock::time_point FKilled;
};

} // namespace

// What is lost are the changes of the last second at most. ZT_KILLS=500 kills more.
TEST(Killed, TypingComesBack)
{
    const int kills = qEnvironmentVariable("ZT_KILLS", "12").toInt();
    constexpr int together = 12;
    std::minstd_rand random(3);
    for (int done = 0; done < kills; done += together) {
        std::vector<std::unique_ptr<TKilledTyping>> typing;
        for (int i = 0; i < std::min(together, kills - done); ++i)
            typing.push_back(std::make_unique<TKilledTyping>(unsigned(random())));
        for (const auto &one : typing) {
            QThread::msleep(random() % 400);
            one->Kill();
        }
        for (const auto &one : typing)
            one->Check();
    }
}
