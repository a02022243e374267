#include "uZtAccessibleEdit.h"

#include "uZtCodeEdit.h"
#include "uZtGuarded.h"
#include "uZtHighlighter.h"
#include "uZtSystemColors.h"
#include "uZtTextMarks.h"
#include "uZtTextUnits.h"

namespace {

constexpr int SightOfLook = 4096; // units behind a character whose look is compared with its own

QString ColourOf(TColor AColour, const QPalette &APalette)
{
    const QColor colour = ZtToQColor(AColour, APalette);
    return QStringLiteral("rgb(%1,%2,%3)").arg(colour.red()).arg(colour.green()).arg(colour.blue());
}

// A value in which a sign of IAccessible2's attributes stands has them marked.
QString Escaped(QString S)
{
    for (const char16_t sign : u"\\:;,=")
        if (sign)
            S.replace(QChar(sign), QStringLiteral("\\") + QChar(sign));
    return S;
}

// How a character looks, and its neighbours in the line that look the same.
struct TLook {
    TZtColourRun Run;
    bool IsInvalid = false;
};

TLook LookAt(TZtCodeEdit &AEdit, const QPoint &APlace)
{
    const int length = AEdit.GetLines()->GetLength(APlace.y());
    const int columns = int(qMin<qint64>(length, qint64(APlace.x()) + SightOfLook));
    TLook look{{0, columns, clWindowText, clWindow, {}}};
    TZtHighlighter own; // where the picture is the lexer's
    TZtHighlighter *highlighter = AEdit.GetHighlighter();
    if (!highlighter) {
        highlighter = &own;
        own.SetText(AEdit.GetLines());
        own.SetExact(false);
        own.SetParser(AEdit.GetParser());
    }
    bool exact = false;
    for (const auto &runs : highlighter->Peek(APlace.y(), APlace.y(), columns, exact))
        for (const TZtColourRun &run : runs)
            if (run.Start <= APlace.x() && APlace.x() < run.Start + run.Length)
                look.Run = run;
    const int end = qMin(look.Run.Start + look.Run.Length, columns);
    look.Run.Length = end - look.Run.Start;
    if (!AEdit.HasTextMarks())
        return look;
    for (const TZtDiagnostic &diagnostic : AEdit.GetTextMarks().Diagnostics.InLine(APlace.y())) {
        const int from = diagnostic.From.y() < APlace.y() ? 0 : diagnostic.From.x();
        const int to = diagnostic.To.y() > APlace.y() ? length : diagnostic.To.x();
        look.IsInvalid |= from <= APlace.x() && APlace.x() < to;
        for (const int edge : {from, to}) {
            const int last = look.Run.Start + look.Run.Length;
            if (edge > look.Run.Start && edge <= APlace.x()) {
                look.Run.Start = edge;
                look.Run.Length = last - edge;
            } else if (edge > APlace.x() && edge < last) {
                look.Run.Length = edge - look.Run.Start;
            }
        }
    }
    return look;
}

QString Attributes(const TLook &ALook, const TZtCodeEdit &AEdit)
{
    const QFont font = AEdit.font();
    QStringList all = {QStringLiteral("font-family:") + Escaped(font.family()),
                       QStringLiteral("font-size:%1pt").arg(QFontInfo(font).pointSizeF()),
                       QStringLiteral("color:") + ColourOf(ALook.Run.Fore, AEdit.palette()),
                       QStringLiteral("background-color:") +
                           ColourOf(ALook.Run.Back, AEdit.palette())};
    const std::pair<TFontStyle, const char *> styles[] = {
        {TFontStyle::fsBold, "font-weight:bold"},
        {TFontStyle::fsItalic, "font-style:italic"},
        {TFontStyle::fsUnderline, "text-underline-style:solid"},
        {TFontStyle::fsStrikeOut, "text-line-through-style:solid"}};
    for (const auto &[style, attribute] : styles)
        if (ALook.Run.Style.testFlag(style))
            all += QLatin1StringView(attribute);
    if (ALook.IsInvalid)
        all += QStringLiteral("invalid:true");
    return all.join(u';') + u';';
}

} // namespace

TZtAccessibleEdit::TZtAccessibleEdit(TZtCodeEdit &AEdit)
    : QAccessibleWidget(&AEdit, QAccessible::EditableText), FText(AEdit)
{
}

QAccessibleInterface *TZtAccessibleEdit::Create(const QString &AClass, QObject *AObject)
{
    auto *edit = qobject_cast<TZtCodeEdit *>(AObject);
    return edit && AClass == QLatin1StringView(TZtCodeEdit::staticMetaObject.className())
               ? new TZtAccessibleEdit(*edit)
               : nullptr;
}

TZtCodeEdit &TZtAccessibleEdit::Edit() const { return *static_cast<TZtCodeEdit *>(widget()); }

// --- object --------------------------------------------------------------------------------------

QString TZtAccessibleEdit::text(QAccessible::Text AText) const
{
    const QString said = QAccessibleWidget::text(AText);
    if (AText == QAccessible::Value)
        return text(0, FText.GetCount());
    if (AText == QAccessible::Name && said.isEmpty())
        return tr("Source code");
    if (AText != QAccessible::Description)
        return said;
    QStringList all = {said, FText.GetNotes()};
    all.removeAll(QString());
    return all.join(QStringLiteral("; "));
}

void TZtAccessibleEdit::setText(QAccessible::Text AText, const QString &S)
{
    if (AText == QAccessible::Value)
        replaceText(0, FText.GetCount(), S);
}

QAccessible::State TZtAccessibleEdit::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.readOnly = Edit().GetReadOnly();
    state.editable = !state.readOnly;
    return state;
}

void *TZtAccessibleEdit::interface_cast(QAccessible::InterfaceType AType)
{
    if (AType == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (AType == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(AType);
}

// --- text ----------------------------------------------------------------------------------------

int TZtAccessibleEdit::OffsetGiven(int AOffset) const
{
    if (AOffset == -2)
        return FText.GetCaret();
    const int count = FText.GetCount();
    return AOffset == -1 ? count : qBound(0, AOffset, count);
}

QString TZtAccessibleEdit::text(int AStart, int AEnd) const
{
    const auto [start, end] = std::minmax({OffsetGiven(AStart), OffsetGiven(AEnd)});
    return FText.GetText(start, end - start > MostText ? start + MostText : end);
}

// What a kind of boundary marks off at an offset.
TZtAccessibleEdit::TStretch TZtAccessibleEdit::StretchAt(int AOffset,
                                                         QAccessible::TextBoundaryType AType) const
{
    if (AType == QAccessible::NoBoundary)
        return {0, FText.GetCount()};
    const TStringList &lines = *Edit().GetLines();
    const QPoint place = FText.PlaceOf(AOffset);
    if (place.y() >= lines.GetCount())
        return {0, 0};
    const int start = AOffset - place.x(), length = lines.GetLength(place.y());
    const bool last = place.y() + 1 == lines.GetCount();
    if (AType == QAccessible::LineBoundary || AType == QAccessible::ParagraphBoundary)
        return {start, start + length + !last};
    if (place.x() == length)
        return {AOffset, AOffset + !last};
    const TZtTextUnit unit = AType == QAccessible::CharBoundary   ? TZtTextUnit::tuCharacter
                             : AType == QAccessible::WordBoundary ? TZtTextUnit::tuWord
                                                                  : TZtTextUnit::tuSentence;
    const auto [from, to] = ZtUnitAt(lines.View(place.y()), place.x(), unit);
    return {start + from, start + to};
}

QString TZtAccessibleEdit::Give(const TStretch &AStretch, int *AStart, int *AEnd) const
{
    *AStart = AStretch.first;
    *AEnd = AStretch.second;
    return text(AStretch.first, AStretch.second);
}

QString TZtAccessibleEdit::textBeforeOffset(int AOffset, QAccessible::TextBoundaryType AType,
                                            int *AStart, int *AEnd) const
{
    const int start = StretchAt(OffsetGiven(AOffset), AType).first;
    return Give(start > 0 ? StretchAt(start - 1, AType) : TStretch(), AStart, AEnd);
}

QString TZtAccessibleEdit::textAtOffset(int AOffset, QAccessible::TextBoundaryType AType,
                                        int *AStart, int *AEnd) const
{
    return Give(StretchAt(OffsetGiven(AOffset), AType), AStart, AEnd);
}

QString TZtAccessibleEdit::textAfterOffset(int AOffset, QAccessible::TextBoundaryType AType,
                                           int *AStart, int *AEnd) const
{
    const int end = StretchAt(OffsetGiven(AOffset), AType).second, count = FText.GetCount();
    const bool more = AType != QAccessible::NoBoundary && end < count;
    return Give(more ? StretchAt(end, AType) : TStretch(count, count), AStart, AEnd);
}

QString TZtAccessibleEdit::attributes(int AOffset, int *AStart, int *AEnd) const
{
    const int offset = OffsetGiven(AOffset);
    const QPoint place = FText.PlaceOf(offset);
    const TStringList &lines = *Edit().GetLines();
    *AStart = offset;
    *AEnd = qMin(offset + 1, FText.GetCount());
    TLook look{{0, 0, clWindowText, clWindow, {}}};
    if (place.y() < lines.GetCount() && place.x() < lines.GetLength(place.y()))
        Guarded([&](TZtCodeEdit &edit) {
            look = LookAt(edit, place);
            *AStart = offset - place.x() + look.Run.Start;
            *AEnd = *AStart + look.Run.Length;
        });
    return Attributes(look, Edit());
}

// --- places --------------------------------------------------------------------------------------

// Runs what may raise; the editor stays as long.
void TZtAccessibleEdit::Guarded(const std::function<void(TZtCodeEdit &)> &AStep) const
{
    const TZtNotifier::THold hold(Edit());
    TZtGuarded([&] { AStep(Edit()); })();
}

// Without the selection, whether Shift is down or not.
void TZtAccessibleEdit::PutCaret(TZtCodeEdit &AEdit, const QPoint &APlace)
{
    AEdit.SetLinePos(APlace.y());
    AEdit.SetCharPos(APlace.x());
    AEdit.SetSelection(true);
}

void TZtAccessibleEdit::setCursorPosition(int APosition)
{
    Guarded([&](TZtCodeEdit &edit) { PutCaret(edit, FText.PlaceOf(OffsetGiven(APosition))); });
}

QRect TZtAccessibleEdit::characterRect(int AOffset) const
{
    const QRect rect = Edit().GetCharacterRect(FText.PlaceOf(OffsetGiven(AOffset)));
    return {Edit().mapToGlobal(rect.topLeft()), rect.size()};
}

int TZtAccessibleEdit::offsetAtPoint(const QPoint &APoint) const
{
    const QPoint place = Edit().GetCharacterAt(Edit().mapFromGlobal(APoint));
    return place.y() < 0 ? -1 : FText.OffsetOf(place);
}

void TZtAccessibleEdit::scrollToSubstring(int AStart, int AEnd)
{
    Guarded([&](TZtCodeEdit &edit) {
        edit.ScrollTo(FText.PlaceOf(OffsetGiven(AEnd)));
        edit.ScrollTo(FText.PlaceOf(OffsetGiven(AStart)));
    });
}

int TZtAccessibleEdit::selectionCount() const
{
    const auto [start, end] = FText.GetSelection();
    return start < end ? 1 : 0;
}

void TZtAccessibleEdit::selection(int AIndex, int *AStart, int *AEnd) const
{
    const auto [start, end] = FText.GetSelection();
    *AStart = AIndex == 0 ? start : 0;
    *AEnd = AIndex == 0 ? end : 0;
}

void TZtAccessibleEdit::removeSelection(int AIndex)
{
    if (AIndex == 0)
        Guarded([](TZtCodeEdit &edit) { edit.SetSelection(true); });
}

void TZtAccessibleEdit::setSelection(int AIndex, int AStart, int AEnd)
{
    if (AIndex != 0)
        return;
    Guarded([&](TZtCodeEdit &edit) {
        const QPoint start = FText.PlaceOf(OffsetGiven(AStart));
        PutCaret(edit, FText.PlaceOf(OffsetGiven(AEnd)));
        edit.SetSelEnd(start);
    });
}

// --- edits ---------------------------------------------------------------------------------------

void TZtAccessibleEdit::replaceText(int AStart, int AEnd, const QString &S)
{
    const auto [start, end] = std::minmax({OffsetGiven(AStart), OffsetGiven(AEnd)});
    const QPoint from = FText.PlaceOf(start), to = FText.PlaceOf(end);
    if (Edit().GetReadOnly() || (from == to && S.isEmpty()))
        return;
    Guarded([&](TZtCodeEdit &edit) {
        TZtFirstException raised;
        edit.BeginUpdate(); // one step of undo
        raised.Run([&] {
            PutCaret(edit, to);
            if (from != to) {
                QString deleted;
                edit.SetSelEnd(from);
                edit.DeleteSelected(TZtChangeType::ctDelete, deleted);
            }
            // Two line feeds would be one break for an editor that takes any two signs for one.
            if (QString text = S; !text.isEmpty())
                edit.InsertText(TZtChangeType::ctPaste,
                                text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                                    .replace(u'\n', QStringLiteral("\r\n")));
            edit.SetSelection(true);
        });
        raised.Run([&] { edit.EndUpdate(); });
        raised.Raise();
    });
}
