#include "marked_text.h"

#include "fZtCodeEditSearchReplaceDlg.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <random>

using namespace Qt::StringLiterals;
using TDlg = TFrmCodeEditSearchReplaceDlg;

namespace {

void Press(QWidget *AWidget, int AKey, const QString &AText)
{
    QKeyEvent event(QEvent::KeyPress, AKey, {}, AText);
    QCoreApplication::sendEvent(AWidget, &event);
}
void Enter(QWidget *AWidget) { Press(AWidget, Qt::Key_Return, u"\r"_s); }
void Escape(QWidget *AWidget) { Press(AWidget, Qt::Key_Escape, u"\x1B"_s); }

class Search : public testing::Test, public TMarkedEditor {
protected:
    Search()
    {
        Edit.removeEventFilter(this); // searching is what this is about
        ZtPlatform().MsgBoxInfo = [this](const QString &text, const QString &) { Boxes += text; };
        ZtPlatform().MsgBoxYesNo = [this](auto &text, auto &) { return Answer(u"1 "_s, text); };
        ZtPlatform().MsgBoxYesNoCancel = [this](auto &text, auto &) {
            return Answer(u"all "_s, text);
        };
    }
    int Answer(const QString &AKind, const QString &AText)
    {
        Boxes += AKind + AText + QString::number(Edit.GetSelStart().x());
        const QChar answer = Answers.isEmpty() ? u'c' : Answers.front();
        Answers.remove(0, 1);
        return answer == u'y' ? mrYes : answer == u'n' ? mrNo : answer == u'o' ? mrOk : mrCancel;
    }
    // Handles what is posted, until the steps have come to an end.
    void Keys(const QString &AWords)
    {
        Do(AWords);
        for (int i = 0; i < 100; ++i)
            QCoreApplication::processEvents();
    }
    // Opens the dialog by a key, and lets `AUse` do its work in it.
    void Open(const QString &AKey, const std::function<void(TDlg &)> &AUse)
    {
        bool used = false;
        QTimer timer; // until the dialog is there
        QObject::connect(&timer, &QTimer::timeout, &Edit, [&] {
            if (!Edit.GetSearchDlg() || !Edit.GetSearchDlg()->isVisible())
                return;
            timer.stop();
            used = true;
            AUse(*Edit.GetSearchDlg());
        });
        timer.start(0);
        Keys(AKey);
        EXPECT_TRUE(used) << "there is no dialog";
    }
    // Types a search text and sets what `AFlags` say: c case, w whole words, b backward, e entire
    // scope, k from the cursor.
    static void Fill(TDlg &ADialog, const QString &AText, const QByteArray &AFlags)
    {
        for (const QChar c : AText)
            Press(ADialog.focusWidget(), 0, c);
        ADialog.GetChkBxCaseSensitive()->setChecked(AFlags.contains('c'));
        ADialog.GetChkBxWholeWordsOnly()->setChecked(AFlags.contains('w'));
        ADialog.GetRgDirection()->SetItemIndex(AFlags.contains('b'));
        if (AFlags.contains('e') || AFlags.contains('k'))
            ADialog.GetRgOrigin()->SetItemIndex(AFlags.contains('e'));
    }
    void Find(const QString &AText, const QByteArray &AFlags = {})
    {
        Open(u"Ctrl+f"_s, [&](TDlg &dialog) {
            Fill(dialog, AText, AFlags);
            Enter(dialog.focusWidget());
        });
    }
    // `p` among the flags has every replacement confirmed.
    void Replace(const QString &AText, const QString &AWith, const QByteArray &AFlags, int AResult)
    {
        Open(u"Ctrl+r"_s, [&](TDlg &dialog) {
            EXPECT_EQ(dialog.rgReplaceScope->GetGoesRound(),
                      Edit.IsCorrected(TZtCorrection::zcDialogs));
            Fill(dialog, AText, AFlags);
            dialog.edtReplaceWith->setText(AWith);
            dialog.chkBxPromptOnReplace->setChecked(AFlags.contains('p'));
            dialog.done(AResult);
        });
    }

    QStringList Boxes;
    QString Answers; ///< y yes, n no, o OK, all else cancel
};

// A match is marked like a selection: `[` is the anchor and `]` the moving end.
const struct {
    const char *Name;
    const char *Before;
    const char *Text;
    const char *Flags;
    const char *After; ///< null: nothing is found, and nothing changes
} Finds[] = {
    {"from the caret", "|xab ab", "ab", "", "x]ab[ ab"},
    {"from the caret on", "xa|b ab", "ab", "", "xab ]ab["},
    {"never from the start again", "ab x|", "ab", "", nullptr},
    {"from right of the line's end", "ab~~|\nab", "ab", "", "ab\n]ab["},
    {"backward up to the caret", "ab ab|", "ab", "b", "ab [ab]"},
    {"backward not over the caret", "ab a|b", "ab", "b", "[ab] ab"},
    {"letters of either case", "|AB", "ab", "", "]AB["},
    {"the case as it is", "|AB ab", "ab", "c", "AB ]ab["},
    {"whole words", "|abc 1ab \u00E4ab _ab", "ab", "w", "abc 1ab \u00E4ab _]ab["},
    {"a text with blanks around it", "|a b", " b ", "", "a ]b["},
    {"nothing to find", "|ab", " ", "", nullptr},
    {"the entire scope backward", "|ab ab", "ab", "be", "ab [ab]"},
    {"the selected lines", "ab\n[x ab\nab]\nab", "ab", "", "ab\nx ]ab[\nab\nab"},
    {"the selected lines backward", "ab\n[x ab\nab] ab\nab", "ab", "b", "ab\nx ab\n[ab] ab\nab"},
    {"up to the selection's end", "[x\na]b", "ab", "", nullptr},
    {"down to the selection's start", "a[b\nx]", "ab", "b", nullptr},
    {"selected lines made upwards", "ab\n]x ab\nab[ ab", "ab", "", "ab\nx ]ab[\nab ab"},
    {"within a line from the caret", "[a b] ab", "ab", "", nullptr},
    {"within a line", "[a ab] ab", "ab", "e", "a ]ab[ ab"},
    {"within a line made to the left", "]a ab[ ab", "ab", "e", nullptr},
    {"the caret's line, also outside the scope", "[x\nab]", "ab", "kb", "x\n[ab]"},
    {"a text without lines", "-", "ab", "e", nullptr},
};

} // namespace

TEST_F(Search, FromTheDialog)
{
    for (const auto &row : Finds) {
        SCOPED_TRACE(row.Name);
        SetMarked(row.Before);
        const QString before = Marked();
        Boxes.clear();
        Find(row.Text, row.Flags);
        EXPECT_EQ(Marked(), row.After ? QString(row.After) : before);
        const QString none = u"Search string '%1' not found."_s.arg(QString(row.Text).trimmed());
        EXPECT_EQ(Boxes, row.After ? QStringList() : QStringList(none));
        if (row.After) {
            const bool down = Edit.GetSearchOptions().SearchForward;
            EXPECT_EQ(QPoint(Edit.GetCharPos(), Edit.GetLinePos()), Edit.GetSelEnd());
            EXPECT_EQ(Edit.GetSelStart().x() < Edit.GetSelEnd().x(), down);
        }
    }
}

TEST_F(Search, TheDialogStartsFromTheSelection)
{
    const struct {
        const char *Before, *Text;
        int Scope, Origin;
    } rows[] = {
        {"a b|", "", 0, 0},       {"]word[ x", "word", 0, 0}, {"[a b] c", "word", 1, 0},
        {"[a\nb]", "word", 1, 1}, {"a|", "word", 0, 0},
    };
    for (const char *key : {"Ctrl+f", "Ctrl+r"})
        for (const auto &row : rows) {
            SCOPED_TRACE(row.Before);
            SetMarked(row.Before);
            Open(key, [&](TDlg &dialog) {
                EXPECT_EQ(dialog.GetEdtTextToFind()->selectedText(), row.Text);
                EXPECT_EQ(dialog.GetRgScope()->GetItemIndex(), row.Scope);
                EXPECT_EQ(dialog.GetRgOrigin()->GetItemIndex(), row.Origin);
                dialog.GetRgOrigin()->SetItemIndex(1);
                Escape(dialog.focusWidget());
            });
            EXPECT_EQ(Marked(), row.Before);
        }
    Keys(u"F3"_s);
    EXPECT_EQ(Boxes, QStringList(u"Search string '' not found."_s)) << "nothing was accepted";
}

// One box for all questions and messages, shortened to what differs. With the correction all
// replacements are one step of undo, and the button of 10 does something.
TEST_F(Search, Replacing)
{
    const TZtCorrections none, with = TZtCorrection::zcReplaceAll | TZtCorrection::zcUndo;
    const struct {
        TZtCorrections Corrections;
        int Result;
        const char *Before, *With, *Flags, *Answers, *After, *Boxes;
        const char *Text = "a";
    } rows[] = {
        {none, 1, "|a a", "c", "", "", "c| a", ""},
        {none, 2, "|a a", "c", "", "", "|a a", ""},
        {none, 1, "|a a a", "c", "p", "y", "c| a a", "1 0"},
        {none, 1, "|a a a", "c", "p", "n", "]a[ a a", "1 0"},
        {none, 14, "|a a a", "c", "p", "yny", "c a c|", "all 0, all 2, all 4, none"},
        {none, 14, "|a a a", "c", "p", "ncy", "a ]a[ a", "all 0, all 2"},
        {none, 14, "|a a a", "c", "p", "oyy", "a c c|", "all 0, all 2, all 4, none"},
        {none, 14, "|a a\na", "aa", "", "", "aa aa\naa|", "none"},
        {none, 14, "a a\na|", "aa", "b", "", "|aa aa\naa", "none"},
        {none, 14, "a a\n|a", "b a b", "be", "", "|b a b b a b\nb a b", "none"},
        {none, 14, "a [x\na] a", "c", "", "", "a x\nc c|", "none"},
        {none, 10, "|a\na", "c", "e", "", "|a\na", ""},
        {with, 10, "a|\na a", "c", "", "", "c\nc |c", ""},
        {with, 10, "|aXa\nXX", "yx", "", "", "ayxa\ny|xyx", "", "x"}, // not what was inserted
        {with, 10, "a|b ab", "", "w", "", " |", "", "ab"},
        {with, 10, "|ab", "x", "", "", "|ab", "none", "q"},
        {with, 10, "|a a a", "c", "p", "yny", "c a c|", "all 1, all 3, all 5"},
        {with, 10, "|a a a", "c", "p", "yc", "c [a] a", "all 1, all 3"},
        {with, 10, "|a-a", "\n", "", "", "a|\na", "", "-"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.Before << ' ' << row.Answers << row.Result);
        Edit.SetCorrections(row.Corrections);
        SetMarked(row.Before);
        Edit.ClearUndo();
        const QStringList before = Lines();
        const QString text = row.Text;
        Boxes.clear();
        Answers = row.Answers;
        Replace(text, row.With, row.Flags, row.Result);
        EXPECT_EQ(Marked(), row.After);
        Boxes.replaceInStrings(u"Do you want to replace this occurrence of '%1'?"_s.arg(text),
                               u""_s);
        Boxes.replaceInStrings(u"Search string '%1' not found."_s.arg(text), u"none"_s);
        EXPECT_EQ(Boxes.join(u", "_s), row.Boxes);
        int steps = 0;
        for (; Edit.GetCanUndo(); ++steps)
            Do(u"#772"_s);
        EXPECT_EQ(Lines(), before);
        EXPECT_TRUE(row.Corrections == none || steps <= 1);
    }
    SetMarked("a x\na a|");
    Edit.ClearUndo();
    Edit.SetReadOnly(true);
    for (const int result : {14, 10})
        Replace(u"a"_s, u"c"_s, "e", result);
    EXPECT_EQ(Lines(), QStringList({u"a x"_s, u"a a"_s}));
    EXPECT_FALSE(Edit.GetCanUndo());
}

// --- the search of one run -----------------------------------------------------------------------

static qsizetype PlainSearch(const QString &ARun, qsizetype AStart, const QString &AText,
                             TZtSearchFlags AOptions)
{
    const bool down = AOptions.testFlag(TZtSearchFlag::sfDown);
    const auto sensitivity =
        AOptions.testFlag(TZtSearchFlag::sfMatchCase) ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const auto isWord = [&](qsizetype at) {
        return AOptions.testFlag(TZtSearchFlag::sfWholeWord) && at >= 0 && at < ARun.size() &&
               ARun[at].isLetterOrNumber();
    };
    qsizetype found = -1;
    for (qsizetype at = 0, end = AText.size(); end <= ARun.size() && at < end; ++at, ++end)
        if (!isWord(at - 1) && !isWord(end) && (down ? found < 0 && at >= AStart : end <= AStart) &&
            ARun.mid(at, AText.size()).compare(AText, sensitivity) == 0)
            found = at;
    return found;
}

TEST_F(Search, Again)
{
    const struct {
        bool Corrected;
        const char *Before; // null: goes on
        const char *Keys;   // null: the form looks for "ab"
        const char *After;
        int Rounds = 0;
        bool Missing = false;
    } rows[] = {
        {false, "ab|\nab", "F3", "ab|\nab"}, // nothing was looked for yet
        {false, "[x ab\nx] ab\nab", nullptr, "x ]ab[\nx ab\nab"},
        {false, nullptr, "F3", "x ab\nx ]ab[\nab"}, // behind the scope
        {false, nullptr, "F3*2", "x ab\nx ab\n]ab[", 0, true},
        {true, "ab\ncab|", nullptr, "[ab]\ncab", 1},
        {true, nullptr, "F3", "ab\nc[ab]"},
        {true, nullptr, "a b F3", "[ab]\ncab", 1}, // typed behind the last match, and found
        {true, nullptr, "Shift+F3", "ab\nc]ab[", 1},
        {true, "|x", "F3", "|x", 0, true},
    };
    const TZtCorrections searching = TZtCorrection::zcReplaceAll | TZtCorrection::zcSearchKey;
    int rounds = 0;
    Edit.SetOnSearchMessage([&](const QString &) { ++rounds; });
    for (const auto &row : rows) {
        SCOPED_TRACE(row.After);
        Edit.SetCorrections(row.Corrected ? searching : TZtCorrections());
        rounds = 0;
        Boxes.clear();
        if (row.Before)
            SetMarked(row.Before);
        row.Keys ? Keys(row.Keys) : Find(u"ab"_s);
        EXPECT_EQ(Marked(), row.After);
        EXPECT_EQ(rounds, row.Rounds);
        EXPECT_EQ(Boxes.join(u','), row.Missing ? "Search string 'ab' not found." : "");
    }
}

TEST(BufferSearch, FindsWhatAPlainSearchFinds)
{
    const QString narrow = u"aAbB \u00E4\u00C4\u00FF\u00B5\u00DF1_"_s;
    const QString wide = narrow + u"\u0178\u03BC\u212A\u0436\u0416"_s + u'k';
    std::minstd_rand random(7);
    const auto pick = [&](qsizetype below) { return qsizetype(random() % quint32(below)); };
    const auto text = [&](const QString &alphabet, qsizetype length) {
        QString made;
        while (made.size() < length)
            made += alphabet[pick(alphabet.size())];
        return made;
    };
    for (int i = 0; i < 40000; ++i) {
        const bool inBytes = pick(2);
        const QString letters = (inBytes ? narrow : wide).left(2 + pick(20));
        const QString run = text(letters, pick(60));
        const QString looked = text(pick(4) ? letters : wide, pick(5));
        const TZtSearchFlags options = TZtSearchFlags::fromInt(int(pick(8)));
        const qsizetype start = pick(run.size() + 8) - 3;
        const qsizetype expected = PlainSearch(run, start, looked, options);
        const QByteArray bytes = run.toLatin1();
        const TZtBufferSearch search(looked, options);
        ASSERT_TRUE(search.Find(run, start) == expected &&
                    (!inBytes || search.Find(QLatin1StringView(bytes), start) == expected))
            << run.toStdString() << '/' << looked.toStdString() << '/' << start << '/'
            << options.toInt();
    }
}

// --- the dialog ----------------------------------------------------------------------------------

namespace {

constexpr auto ForFind = TFrmCodeEditSearchReplaceDlgType::search;
constexpr auto ForReplace = TFrmCodeEditSearchReplaceDlgType::replace;

class SearchDialog : public testing::Test {
protected:
    SearchDialog() { SetPointSize(8); }
    ~SearchDialog() override { QApplication::setFont(Before); }
    static void SetPointSize(qreal ASize)
    {
        QFont font = QApplication::font();
        font.setPointSizeF(ASize);
        QApplication::setFont(font);
    }
    static void Show(TDlg &ADialog, TFrmCodeEditSearchReplaceDlgType AType)
    {
        ADialog.hide();
        ADialog.SetDlgType(AType);
        ADialog.show();
        QApplication::setActiveWindow(&ADialog);
    }
    const QFont Before = QApplication::font();
};

// A radio button has the name of its group.
QString NameOf(const QWidget *AWidget)
{
    return AWidget->objectName().isEmpty() ? AWidget->parentWidget()->objectName()
                                           : AWidget->objectName();
}

} // namespace

TEST_F(SearchDialog, HasTwoFormsThatKeepTheirEntriesApart)
{
    const struct {
        TFrmCodeEditSearchReplaceDlgType Type;
        const char *Title;
        int Height;
        const char *Tabs;
    } forms[] = {
        {ForFind, "Find Text", 276,
         "edtSearchTextToFind chkBxSearchCaseSensitive chkBxSearchWholeWordsOnly rgSearchScope "
         "rgSearchDirection rgSearchOrigin btnOK btnCancel edtSearchTextToFind"},
        {ForReplace, "Replace Text", 319,
         "edtReplaceTextToFind edtReplaceWith chkBxReplaceCaseSensitive chkBxReplaceWholeWordsOnly "
         "chkBxPromptOnReplace rgReplaceDirection rgReplaceScope rgReplaceOrigin btnOK btnCancel "
         "btnReplaceAll edtReplaceTextToFind"},
    };
    TDlg dialog;
    dialog.show();
    dialog.resize(505, 419);
    for (const int i : {1, 0, 1}) {
        const auto &form = forms[i];
        Show(dialog, form.Type);
        EXPECT_EQ(dialog.windowTitle(), form.Title);
        EXPECT_EQ(dialog.btnOK->x() < dialog.btnReplaceAll->x(), form.Type == ForReplace);
        EXPECT_EQ(dialog.size(), QSize(505, form.Height)) << "the user's width stays";
        EXPECT_EQ(dialog.btnCancel->pos(), QPoint(418, dialog.height() - 31));
        for (const QString &name : QString(form.Tabs).split(u' ')) {
            ASSERT_EQ(NameOf(dialog.focusWidget()), name);
            Press(dialog.focusWidget(), Qt::Key_Tab, u"\t"_s);
        }
    }
    dialog.GetEdtTextToFind()->setText(u"x"_s);
    dialog.GetRgScope()->SetItemIndex(1);
    dialog.GetChkBxCaseSensitive()->setChecked(true);
    dialog.SetDlgType(ForFind);
    EXPECT_EQ(dialog.GetEdtTextToFind()->text(), QString());
    EXPECT_EQ(dialog.GetRgScope()->GetItemIndex() + dialog.GetRgDirection()->GetItemIndex(), 0);
    EXPECT_FALSE(dialog.GetChkBxCaseSensitive()->isChecked());
}

namespace {

// As desktops give it: some colours are said, others follow from them.
QPalette PaletteOf(QRgb AButton, QRgb AWindow, QRgb AText, QRgb ABase)
{
    QPalette palette{QColor(AButton), QColor(AWindow)};
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, QColor(AText));
    palette.setColor(QPalette::Base, QColor(ABase));
    palette.setColor(QPalette::Inactive, QPalette::Base, QColor(ABase).darker(110));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(AWindow));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x808080));
    return palette;
}

} // namespace

TEST_F(SearchDialog, LooksAsMadeAnewWhenThePaletteIsAnother)
{
    const QPalette before = QApplication::palette();
    const QPalette light = PaletteOf(0xE8E8E8, 0xF0F0F0, 0x101010, 0xFFFFFF);
    const QPalette dark = PaletteOf(0x303030, 0x404040, 0xE0E0E0, 0x202020);
    const QPalette flat = PaletteOf(0xE8E8E8, 0xFFF8F0, 0x400000, 0xFFF8F0);
    const auto picture = [](TDlg &form) {
        form.SetDlgType(ForReplace);
        form.btnOK->setFocus();
        return form.grab().toImage();
    };
    for (const QPalette &first : {before, light, dark, flat}) {
        QApplication::setPalette(first);
        TDlg open;
        TDlg closed;
        open.show();
        for (const QPalette &next : {dark, light, flat, before, dark, before}) {
            QApplication::setPalette(next);
            QCoreApplication::processEvents();
            TDlg anew;
            for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
                for (int i = 0; i < QPalette::NColorRoles; ++i)
                    for (TDlg *form : {&open, &closed})
                        for (const QWidget *control : {static_cast<QWidget *>(form), form->tsFind})
                            EXPECT_EQ(
                                control->palette().color(group, QPalette::ColorRole(i)).name(),
                                anew.palette().color(group, QPalette::ColorRole(i)).name())
                                << group << ' ' << i;
            EXPECT_EQ(anew.grab().toImage().pixelColor(3, 3), next.color(QPalette::Base));
            EXPECT_EQ(picture(closed), picture(anew));
        }
    }
    QApplication::setPalette(before);
}

TEST_F(SearchDialog, ClosesWithItsResults)
{
    TDlg dialog;
    dialog.SetDlgType(ForReplace);
    const auto enterOn = [&](QWidget *control) {
        QApplication::setActiveWindow(&dialog);
        control->setFocus();
        Enter(control);
    };
    const std::pair<int, std::function<void()>> rows[] = {
        {1, [&] { dialog.btnOK->click(); }},
        {2, [&] { dialog.btnCancel->click(); }},
        {10, [&] { dialog.btnReplaceAll->click(); }},
        {1, [&] { enterOn(dialog.chkBxPromptOnReplace); }},
        {10, [&] { enterOn(dialog.btnReplaceAll); }},
        {1, [&] { enterOn(dialog.edtReplaceWith); }}, // also after another button had the focus
        {2, [&] { Escape(dialog.chkBxPromptOnReplace); }},
        {2, [&] { dialog.close(); }},
    };
    for (const auto &[result, act] : rows) {
        QTimer::singleShot(0, &dialog, act);
        EXPECT_EQ(dialog.ShowModal(), result);
    }
}

TEST_F(SearchDialog, ArrowKeysMoveTheChoice)
{
    const struct {
        int Key, From, To, ToRound;
    } rows[] = {
        {Qt::Key_Down, 0, 1, 1}, {Qt::Key_Down, 1, 1, 0},  {Qt::Key_Up, 1, 0, 0},
        {Qt::Key_Up, 0, 0, 1},   {Qt::Key_Right, 0, 0, 1}, {Qt::Key_Right, 1, 1, 0},
        {Qt::Key_Left, 0, 0, 1}, {Qt::Key_Left, 1, 1, 0},
    };
    TDlg dialog;
    Show(dialog, ForReplace);
    TRadioGroup &group = *dialog.rgReplaceScope;
    for (const bool round : {false, true})
        for (const auto &row : rows) {
            dialog.SetGoesRound(round);
            group.SetItemIndex(row.From);
            group.GetButtons().at(size_t(row.From))->setFocus();
            Press(dialog.focusWidget(), row.Key, {});
            const int to = round ? row.ToRound : row.To;
            EXPECT_EQ(group.GetItemIndex(), to) << row.Key << round;
            EXPECT_EQ(dialog.focusWidget(), group.GetButtons().at(size_t(to)));
        }
}

// The captions of all that assistive tools see in a control; "?" for one that is not shown.
static QStringList Captions(QAccessibleInterface *AControl)
{
    QStringList captions{AControl->state().invisible ? u"?"_s : AControl->text(QAccessible::Name)};
    for (int i = 0; i < AControl->childCount(); ++i) {
        EXPECT_EQ(AControl->indexOfChild(AControl->child(i)), i);
        captions += Captions(AControl->child(i));
    }
    return captions;
}

TEST_F(SearchDialog, EveryControlOfTheShownPageHasALetterAndRoom)
{
    for (const auto &[type, points] : {std::pair(ForFind, 8), {ForReplace, 8}, {ForReplace, 20}}) {
        SetPointSize(points);
        TDlg dialog;
        Show(dialog, type);
        QStringList letters;
        for (QWidget *control : dialog.findChildren<QWidget *>()) {
            const char *caption = qobject_cast<QGroupBox *>(control) ? "title" : "text";
            if (!control->isVisible() || !control->property(caption).isValid())
                continue;
            const bool field = qobject_cast<QLineEdit *>(control); // scrolls, in a frame of 2
            const int height = field ? control->fontMetrics().height() + 4 : 0;
            const auto *label = qobject_cast<QLabel *>(control);
            const bool whole = label || qobject_cast<QCheckBox *>(control) ||
                               qobject_cast<QRadioButton *>(control);
            const QSize wanted = whole ? control->sizeHint() : QSize(0, height);
            EXPECT_EQ(control->size().expandedTo(wanted), control->size());
            EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
            EXPECT_TRUE(!label || (label->buddy() && label->buddy()->isVisible()));
            if (!field)
                letters += QKeySequence::mnemonic(control->property(caption).toString()).toString();
        }
        EXPECT_EQ(letters.removeAll(QString()), 1) << "the group of options, all of which have one";
        EXPECT_EQ(letters.removeDuplicates(), 0) << letters.join(u' ').toStdString();
        EXPECT_EQ(letters.size(), type == ForReplace ? 17 : 14);
        const QStringList seen = Captions(QAccessible::queryAccessibleInterface(&dialog));
        EXPECT_FALSE(seen.contains(u"?"_s));
        EXPECT_EQ(seen.count(u"Scope"_s), 1);
        EXPECT_EQ(seen.contains(u"Replace All"_s), type == ForReplace);
    }
}
