#include "fZtCodeEditSearchReplaceDlg.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

namespace {

constexpr int ReferencePoints = 8;
constexpr int FormWidth = 405;
constexpr int FindHeight = 276;
constexpr int ReplaceHeight = 319;
constexpr int ButtonWidth = 75;
constexpr int ButtonHeight = 25;
constexpr int ButtonBottom = 31; // from the form's bottom to the buttons' top
constexpr int ButtonMargin = 7;  // at the sides of its text
constexpr int ButtonStep = 78;   // from one button to the next
constexpr int FirstButtonLeft = 162;
constexpr int CancelLeft = 318;
constexpr int LabelWidth = 78;
constexpr int GroupWidth = 177;
constexpr int Margin = 8; // at the left of the form, and around what is in a group
constexpr int ResultOK = 1;
constexpr int ResultCancel = 2;
constexpr int ResultReplaceAll = 10;

// A control's place on its page.
struct TPlace {
    QWidget *Control;
    int Left, Top, Width, Height;
};

// What assistive tools see of the form, its page control and the stack in that: Qt would give them
// the page that is not shown as well, the tabs, and the button that a search does not have.
class TShownChildren : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override { return int(Shown().size()); }
    QAccessibleInterface *child(int AIndex) const override
    {
        return QAccessible::queryAccessibleInterface(Shown().value(AIndex));
    }
    int indexOfChild(const QAccessibleInterface *AChild) const override
    {
        return AChild ? int(Shown().indexOf(AChild->object())) : -1;
    }

    static QAccessibleInterface *Create(const QString &AClass, QObject *AObject)
    {
        using TForm = TFrmCodeEditSearchReplaceDlg;
        if (AClass == QLatin1StringView(TForm::staticMetaObject.className()))
            return new TShownChildren(qobject_cast<QWidget *>(AObject), QAccessible::Dialog);
        const bool pages = AClass == QLatin1StringView("QTabWidget");
        const QObject *control = pages ? AObject : AObject->parent();
        if ((pages || AClass == QLatin1StringView("QStackedWidget")) && control &&
            qobject_cast<TForm *>(control->parent()))
            return new TShownChildren(qobject_cast<QWidget *>(AObject),
                                      pages ? QAccessible::Client : QAccessible::LayeredPane);
        return nullptr;
    }

private:
    QObjectList Shown() const
    {
        QObjectList shown;
        for (auto *control : widget()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
            if (!control->isHidden() && !control->isWindow())
                shown.append(control);
        return shown;
    }
};

} // namespace

// --- radio group ---------------------------------------------------------------------------------

TRadioGroup::TRadioGroup(const QString &ACaption, const QStringList &AItems, QWidget *AParent)
    : QGroupBox(ACaption, AParent)
{
    for (const QString &item : AItems) {
        auto *button = new QRadioButton(item, this);
        // Tab leads to the chosen item alone, the arrow keys from there to the others.
        button->setFocusPolicy(Qt::ClickFocus);
        connect(button, &QRadioButton::toggled, button, [button](bool chosen) {
            button->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
        });
        button->installEventFilter(this);
        FButtons.push_back(button);
    }
}

bool TRadioGroup::eventFilter(QObject *AWatched, QEvent *AEvent)
{
    const int key =
        AEvent->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(AEvent)->key() : 0;
    const bool forward = key == Qt::Key_Down || key == Qt::Key_Right;
    const bool backward = key == Qt::Key_Up || key == Qt::Key_Left;
    if (!FGoesRound || (!forward && !backward) || GetItemIndex() < 0)
        return QGroupBox::eventFilter(AWatched, AEvent);
    const int count = int(FButtons.size());
    SetItemIndex((GetItemIndex() + (forward ? 1 : count - 1)) % count);
    FButtons[size_t(GetItemIndex())]->setFocus(Qt::OtherFocusReason);
    return true;
}

int TRadioGroup::GetItemIndex() const
{
    for (size_t i = 0; i < FButtons.size(); ++i)
        if (FButtons[i]->isChecked())
            return int(i);
    return -1;
}

void TRadioGroup::SetItemIndex(int Value) { FButtons.at(size_t(Value))->setChecked(true); }

// --- form ----------------------------------------------------------------------------------------

TFrmCodeEditSearchReplaceDlg::TFrmCodeEditSearchReplaceDlg(QWidget *AOwner) : QDialog(AOwner)
{
    QFont small(QStringLiteral("MS Sans Serif"));
    small.setStyleHint(QFont::SansSerif);
    // A user who has chosen large letters gets them here too.
    small.setPointSizeF(qMax<qreal>(ReferencePoints, QApplication::font().pointSizeF() - 1));
    setFont(small);
    ColourForm();
    setSizeGripEnabled(true);
    QAccessible::installFactory(&TShownChildren::Create);

    pcMain = new QTabWidget(this);
    CreateFindPage();
    CreateReplacePage();
    pcMain->addTab(tsFind, tr("Find"));
    pcMain->addTab(tsReplace, tr("Replace"));
    pcMain->tabBar()->hide();
    pcMain->setFocusPolicy(Qt::NoFocus); // or Tab would end at the hidden tabs
    CreateButtons();
    SetTabOrders();
    NameControls();
    for (auto *control : findChildren<QWidget *>())
        control->installEventFilter(this); // the form sees a key before its control does

    FDlgType = TFrmCodeEditSearchReplaceDlgType::replace;
    SetDlgType(TFrmCodeEditSearchReplaceDlgType::search);
}

QGroupBox *TFrmCodeEditSearchReplaceDlg::CreateOptions(QWidget *APage,
                                                       const std::vector<QCheckBox **> &ABoxes,
                                                       const QStringList &ACaptions)
{
    auto *group = new QGroupBox(tr("Options"), APage);
    for (size_t i = 0; i < ABoxes.size(); ++i)
        *ABoxes[i] = new QCheckBox(ACaptions[qsizetype(i)], group);
    return group;
}

TRadioGroup *TFrmCodeEditSearchReplaceDlg::CreateChoice(QWidget *APage, const QString &ACaption,
                                                        const QStringList &AItems, int AIndex)
{
    auto *group = new TRadioGroup(ACaption, AItems, APage);
    group->SetItemIndex(AIndex);
    return group;
}

void TFrmCodeEditSearchReplaceDlg::CreateFindPage()
{
    tsFind = new QWidget(pcMain);
    lblTextToFind = new QLabel(tr("&Text to find:"), tsFind);
    edtSearchTextToFind = new QLineEdit(tsFind);
    lblTextToFind->setBuddy(edtSearchTextToFind);
    gbSearchOptions = CreateOptions(tsFind, {&chkBxSearchCaseSensitive, &chkBxSearchWholeWordsOnly},
                                    {tr("&Case sensitive"), tr("&Whole words only")});
    rgSearchScope = CreateChoice(tsFind, tr("&Scope"), {tr("&Global"), tr("Se&lected text")}, 0);
    rgSearchDirection =
        CreateChoice(tsFind, tr("&Direction"), {tr("&Forward"), tr("&Backward")}, 0);
    rgSearchOrigin =
        CreateChoice(tsFind, tr("Or&igin"), {tr("Fro&m cursor"), tr("&Entire scope")}, 1);
}

void TFrmCodeEditSearchReplaceDlg::CreateReplacePage()
{
    tsReplace = new QWidget(pcMain);
    Label1 = new QLabel(tr("&Text to find:"), tsReplace);
    lblReplaceWith = new QLabel(tr("&Replace with:"), tsReplace);
    edtReplaceTextToFind = new QLineEdit(tsReplace);
    edtReplaceWith = new QLineEdit(tsReplace);
    Label1->setBuddy(edtReplaceTextToFind);
    lblReplaceWith->setBuddy(edtReplaceWith);
    gbReplaceOptions = CreateOptions(
        tsReplace, {&chkBxReplaceCaseSensitive, &chkBxReplaceWholeWordsOnly, &chkBxPromptOnReplace},
        {tr("&Case sensitive"), tr("&Whole words only"), tr("&Prompt on replace")});
    rgReplaceDirection =
        CreateChoice(tsReplace, tr("&Direction"), {tr("&Forward"), tr("&Backward")}, 0);
    rgReplaceScope =
        CreateChoice(tsReplace, tr("&Scope"), {tr("&Global"), tr("Se&lected text")}, 0);
    rgReplaceOrigin =
        CreateChoice(tsReplace, tr("Or&igin"), {tr("Fro&m cursor"), tr("&Entire scope")}, 1);
}

void TFrmCodeEditSearchReplaceDlg::CreateButtons()
{
    const auto button = [this](const QString &caption, int result) {
        auto *created = new QPushButton(caption, this);
        connect(created, &QPushButton::clicked, this, [this, result] { done(result); });
        return created;
    };
    btnOK = button(tr("&OK"), ResultOK);
    btnOK->setDefault(true);
    btnCancel = button(tr("Ca&ncel"), ResultCancel);
    btnReplaceAll = button(tr("Replace &All"), ResultReplaceAll);
}

void TFrmCodeEditSearchReplaceDlg::SetTabOrders()
{
    std::vector<QWidget *> order = {edtSearchTextToFind, chkBxSearchCaseSensitive,
                                    chkBxSearchWholeWordsOnly};
    const auto add = [&order](const TRadioGroup *group) {
        order.insert(order.end(), group->GetButtons().begin(), group->GetButtons().end());
    };
    add(rgSearchScope);
    add(rgSearchDirection);
    add(rgSearchOrigin);
    order.insert(order.end(), {edtReplaceTextToFind, edtReplaceWith, chkBxReplaceCaseSensitive,
                               chkBxReplaceWholeWordsOnly, chkBxPromptOnReplace});
    add(rgReplaceDirection);
    add(rgReplaceScope);
    add(rgReplaceOrigin);
    order.insert(order.end(), {btnOK, btnCancel, btnReplaceAll});
    for (size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void TFrmCodeEditSearchReplaceDlg::NameControls()
{
    const std::vector<std::pair<QWidget *, const char *>> names = {
        {this, "FrmCodeEditSearchReplaceDlg"},
        {pcMain, "pcMain"},
        {tsFind, "tsFind"},
        {lblTextToFind, "lblTextToFind"},
        {edtSearchTextToFind, "edtSearchTextToFind"},
        {gbSearchOptions, "gbSearchOptions"},
        {chkBxSearchCaseSensitive, "chkBxSearchCaseSensitive"},
        {chkBxSearchWholeWordsOnly, "chkBxSearchWholeWordsOnly"},
        {rgSearchScope, "rgSearchScope"},
        {rgSearchDirection, "rgSearchDirection"},
        {rgSearchOrigin, "rgSearchOrigin"},
        {tsReplace, "tsReplace"},
        {Label1, "Label1"},
        {lblReplaceWith, "lblReplaceWith"},
        {edtReplaceTextToFind, "edtReplaceTextToFind"},
        {edtReplaceWith, "edtReplaceWith"},
        {gbReplaceOptions, "gbReplaceOptions"},
        {chkBxReplaceCaseSensitive, "chkBxReplaceCaseSensitive"},
        {chkBxReplaceWholeWordsOnly, "chkBxReplaceWholeWordsOnly"},
        {chkBxPromptOnReplace, "chkBxPromptOnReplace"},
        {rgReplaceDirection, "rgReplaceDirection"},
        {rgReplaceScope, "rgReplaceScope"},
        {rgReplaceOrigin, "rgReplaceOrigin"},
        {btnOK, "btnOK"},
        {btnCancel, "btnCancel"},
        {btnReplaceAll, "btnReplaceAll"},
    };
    for (const auto &[control, name] : names)
        control->setObjectName(QLatin1StringView(name));
}

void TFrmCodeEditSearchReplaceDlg::SetDlgType(TFrmCodeEditSearchReplaceDlgType Value)
{
    if (Value == FDlgType)
        return;
    FDlgType = Value;
    setWindowTitle(IsReplace() ? tr("Replace Text") : tr("Find Text"));
    pcMain->setCurrentWidget(IsReplace() ? tsReplace : tsFind);
    btnReplaceAll->setVisible(IsReplace());
    std::swap(FOKLeft, FReplaceAllLeft);
    FitToType();
}

void TFrmCodeEditSearchReplaceDlg::SetGoesRound(bool Value)
{
    for (auto *group : findChildren<TRadioGroup *>())
        group->SetGoesRound(Value);
}

// The height is the type's; what the user has added to the width stays.
void TFrmCodeEditSearchReplaceDlg::FitToType()
{
    const int added = minimumWidth() > 0 ? width() - minimumWidth() : 0;
    MeasureTexts();
    const int least = Scaled(FormWidth) + FGrowth.Form;
    setMinimumSize(0, 0);
    resize(least + added, Scaled(IsReplace() ? ReplaceHeight : FindHeight));
    setMinimumSize(least, height());
    Arrange();
}

// The places are made for the English texts, with which they stay as they are.
void TFrmCodeEditSearchReplaceDlg::MeasureTexts()
{
    FGrowth = {};
    if (btnReplaceAll->text() == QLatin1StringView("Replace &All"))
        return;
    for (const QLabel *label : {lblTextToFind, Label1, lblReplaceWith})
        FGrowth.Label = qMax(FGrowth.Label, label->sizeHint().width() - Scaled(LabelWidth));
    int group = 0;
    for (const auto *box : findChildren<QGroupBox *>()) {
        group = qMax(group, box->minimumSizeHint().width() - Scaled(GroupWidth));
        for (const auto *button : box->findChildren<QAbstractButton *>())
            group = qMax(group, button->sizeHint().width() - Scaled(GroupWidth - 2 * Margin));
    }
    // The least width of a style's buttons is more than these have.
    for (const QPushButton *button : {btnOK, btnCancel, btnReplaceAll}) {
        const int text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        FGrowth.Button =
            qMax(FGrowth.Button, text + Scaled(2 * ButtonMargin) - Scaled(ButtonWidth));
    }
    const int buttons = 3 * FGrowth.Button - Scaled(FirstButtonLeft - Margin);
    FGrowth.Form = qMax(FGrowth.Label, qMax(2 * group, buttons));
}

int TFrmCodeEditSearchReplaceDlg::Scaled(int APixels) const
{
    return qRound(APixels * qMax<qreal>(1, font().pointSizeF() / ReferencePoints));
}

// Places all controls; what is anchored to the right and the bottom follows the form's size.
void TFrmCodeEditSearchReplaceDlg::Arrange()
{
    constexpr int editWidth = 285, editHeight = 21, right = 196, row = 21;
    const int dx = width() - Scaled(FormWidth);
    pcMain->setGeometry(Scaled(8), Scaled(8), width() - Scaled(18), height() - Scaled(45));
    const std::vector<TPlace> places = {
        {lblTextToFind, 8, 11, LabelWidth, 13},
        {edtSearchTextToFind, 88, 8, editWidth, editHeight},
        {gbSearchOptions, 8, 36, GroupWidth, 65},
        {rgSearchDirection, right, 36, GroupWidth, 65},
        {rgSearchScope, 8, 108, GroupWidth, 65},
        {rgSearchOrigin, right, 108, GroupWidth, 65},
        {Label1, 8, 11, LabelWidth, 13},
        {lblReplaceWith, 8, 35, LabelWidth, 13},
        {edtReplaceTextToFind, 88, 8, editWidth, editHeight},
        {edtReplaceWith, 88, 32, editWidth, editHeight},
        {gbReplaceOptions, 8, 60, GroupWidth, 89},
        {rgReplaceDirection, right, 60, GroupWidth, 89},
        {rgReplaceScope, 8, 156, GroupWidth, 65},
        {rgReplaceOrigin, right, 156, GroupWidth, 65},
    };
    const int half = FGrowth.Form / 2;
    for (const TPlace &place : places) {
        QRect rect(Scaled(place.Left), Scaled(place.Top), Scaled(place.Width),
                   Scaled(place.Height));
        if (qobject_cast<QLabel *>(place.Control))
            rect.adjust(0, 0, FGrowth.Label, 0);
        else if (qobject_cast<QLineEdit *>(place.Control))
            rect.adjust(FGrowth.Label, 0, FGrowth.Form, 0);
        else
            rect.adjust(place.Left == right ? half : 0, 0, place.Left == right ? 2 * half : half,
                        0);
        place.Control->setGeometry(rect);
        int top = 21;
        for (auto *button : place.Control->findChildren<QAbstractButton *>()) {
            button->setGeometry(Scaled(Margin), Scaled(top), Scaled(GroupWidth - 2 * Margin) + half,
                                Scaled(row - 1));
            top += row;
        }
    }
    const int top = height() - Scaled(ButtonBottom);
    const std::vector<TPlace> buttons = {{btnOK, FOKLeft, 0, 0, 0},
                                         {btnReplaceAll, FReplaceAllLeft, 0, 0, 0},
                                         {btnCancel, CancelLeft, 0, 0, 0}};
    for (const TPlace &place : buttons) {
        const int fromRight = 1 + (CancelLeft - place.Left) / ButtonStep;
        place.Control->setGeometry(Scaled(place.Left) + dx - fromRight * FGrowth.Button, top,
                                   Scaled(ButtonWidth) + FGrowth.Button, Scaled(ButtonHeight));
    }
}

void TFrmCodeEditSearchReplaceDlg::resizeEvent(QResizeEvent *AEvent)
{
    QDialog::resizeEvent(AEvent);
    Arrange();
}

// The form has the colour of a text's background, also after the desktop has got other colours. A
// window behind others may have one of its own: which of them the form takes must not depend on
// where it was when the colours came.
void TFrmCodeEditSearchReplaceDlg::ColourForm()
{
    static constexpr std::pair<QPalette::ColorGroup, QPalette::ColorGroup> groups[] = {
        {QPalette::Active, QPalette::Active},
        {QPalette::Inactive, QPalette::Inactive},
        {QPalette::Disabled, QPalette::Active}};
    QPalette colours = palette();
    for (const auto &[group, of] : groups)
        colours.setColor(group, QPalette::Window, colours.color(of, QPalette::Base));
    if (colours != palette())
        setPalette(colours);
}

void TFrmCodeEditSearchReplaceDlg::changeEvent(QEvent *AEvent)
{
    QDialog::changeEvent(AEvent);
    if (AEvent->type() == QEvent::PaletteChange)
        ColourForm();
    else if (AEvent->type() == QEvent::FontChange && !objectName().isEmpty()) // else in the making
        FitToType();
}

void TFrmCodeEditSearchReplaceDlg::showEvent(QShowEvent *AEvent)
{
    QDialog::showEvent(AEvent);
    FormShow(this);
}

bool TFrmCodeEditSearchReplaceDlg::event(QEvent *AEvent)
{
    return (!focusWidget() && TakesKey(AEvent)) || QDialog::event(AEvent);
}

bool TFrmCodeEditSearchReplaceDlg::eventFilter(QObject *AWatched, QEvent *AEvent)
{
    // What the control leaves goes on to its parents, which have seen the key then.
    return (AWatched == focusWidget() && TakesKey(AEvent)) ||
           QDialog::eventFilter(AWatched, AEvent);
}

// Shows a key press to the form. Answers whether that is all that is done with it.
bool TFrmCodeEditSearchReplaceDlg::TakesKey(QEvent *AEvent)
{
    if (AEvent->type() != QEvent::KeyPress)
        return false;
    const auto *event = static_cast<QKeyEvent *>(AEvent);
    const quint16 pressed = ZtVirtualKey(*event);
    quint16 key = pressed;
    FormKeyDown(this, key, ZtShiftStateOf(*event));
    return key != pressed;
}

void TFrmCodeEditSearchReplaceDlg::FormShow(QObject *)
{
    GetEdtTextToFind()->setFocus();
    GetEdtTextToFind()->selectAll();
}

void TFrmCodeEditSearchReplaceDlg::FormKeyDown(QObject *, quint16 &Key, TShiftState)
{
    if (Key != TZtKey::Escape)
        return;
    Key = TZtKey::None;
    done(ResultCancel);
}

void TFrmCodeEditSearchReplaceDlg::reject() { done(ResultCancel); }

QLineEdit *TFrmCodeEditSearchReplaceDlg::GetEdtTextToFind() const
{
    return IsReplace() ? edtReplaceTextToFind : edtSearchTextToFind;
}

TRadioGroup *TFrmCodeEditSearchReplaceDlg::GetRgScope() const
{
    return IsReplace() ? rgReplaceScope : rgSearchScope;
}

TRadioGroup *TFrmCodeEditSearchReplaceDlg::GetRgOrigin() const
{
    return IsReplace() ? rgReplaceOrigin : rgSearchOrigin;
}

TRadioGroup *TFrmCodeEditSearchReplaceDlg::GetRgDirection() const
{
    return IsReplace() ? rgReplaceDirection : rgSearchDirection;
}

QCheckBox *TFrmCodeEditSearchReplaceDlg::GetChkBxCaseSensitive() const
{
    return IsReplace() ? chkBxReplaceCaseSensitive : chkBxSearchCaseSensitive;
}

QCheckBox *TFrmCodeEditSearchReplaceDlg::GetChkBxWholeWordsOnly() const
{
    return IsReplace() ? chkBxReplaceWholeWordsOnly : chkBxSearchWholeWordsOnly;
}
